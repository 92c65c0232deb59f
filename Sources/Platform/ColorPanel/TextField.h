// A line of text on a plate.
#pragma once

#include "Fonts.h"

#include <QLineEdit>

namespace platform {

/// A text field in the look of the kit. `leading` and `trailing` are free at its ends.
class TextField : public QLineEdit {
public:
    TextField(const TextStyle& style, double radius, int leading, int trailing, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double radius_;
};

} // namespace platform
