// One colour of a list: swatch, name and hex text.
#pragma once

#include "ColorSource.h"

namespace platform {

struct ColorRowState {
    QString name;
    QColor color;
    bool selected = false;
    /// The keyboard is on the row.
    bool current = false;
    /// Text on a selected row, which is filled with its colour.
    QColor ink;

    bool operator==(const ColorRowState&) const = default;
};

class ColorRow : public ColorSource {
public:
    explicit ColorRow(QWidget* parent);

    void show(const ColorRowState& state);
    void describe(QAccessible::State& state) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ColorRowState state_;
};

} // namespace platform
