// A divider line.
#pragma once

#include <QWidget>

namespace platform {

/// A horizontal line one point thick, `leading` and `trailing` points away from the edges.
class Separator : public QWidget {
public:
    explicit Separator(int leading = 0, int trailing = 0, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int leading_;
    int trailing_;
};

} // namespace platform
