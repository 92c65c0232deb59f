// One colour of a list: swatch, name and hex text.
#pragma once

#include "Color.h"

#include <QColor>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>

namespace platform {

struct ColorRowState {
    QString name;
    QColor color;
    bool selected = false;
    /// Text on a selected row, which is filled with its colour.
    QColor ink;

    bool operator==(const ColorRowState&) const = default;
};

/// "#RRGGBB"
[[nodiscard]] QString hexText(const QColor& color);

/// Chosen by click, Return or Space; dragged like every swatch.
class ColorRow : public QWidget {
public:
    ColorRow(std::function<void()> chosen, QWidget* parent);

    void show(const ColorRowState& state);
    void setChosen(std::function<void()> chosen) { chosen_ = std::move(chosen); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void paintSwatch(QPainter& painter, const QRectF& box) const;
    [[nodiscard]] QPixmap dragPicture() const;

    std::function<void()> chosen_;
    ColorRowState state_;
    std::optional<QPointF> press_;
};

} // namespace platform
