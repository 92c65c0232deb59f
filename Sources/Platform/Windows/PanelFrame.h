// What surrounds the panel: a shadow, an outline and round corners where the desktop composites, a
// plain line where it does not.
#pragma once

#include "Shadow.h"

#include <QMargins>
#include <QPoint>
#include <QRect>
#include <QSize>

class QPainter;

namespace platform {

class PanelFrame {
public:
    static constexpr double openingSeconds = 0.12;
    /// The way that the panel travels while it opens.
    static constexpr double openingTravel = 4;

    explicit PanelFrame(bool composited);

    [[nodiscard]] bool isComposited() const { return composited_; }
    /// Between the bar and the panel.
    [[nodiscard]] int gap() const { return composited_ ? 8 : 0; }
    /// Width of a line around the content that belongs to the panel.
    [[nodiscard]] int line() const { return composited_ ? 0 : 1; }
    /// Room for the shadow around a panel that opens in `direction`; none over the bar.
    [[nodiscard]] QMargins shadowRoom(QPoint direction) const;
    /// The squares in which the content has to be cut away; empty without round corners.
    [[nodiscard]] QSize cornerSize() const;

    /// Paints everything outside the content of a panel at `panel`.
    void paintAround(QPainter& painter, const QRect& panel) const;
    /// Cuts a corner of the content away and puts what is around in its place. `panel` and the
    /// painter's clip are in the same coordinates.
    void paintCorner(QPainter& painter, const QRect& corner, const QRect& panel) const;

private:
    void paintShadow(QPainter& painter, const QRect& panel) const;
    void paintOutline(QPainter& painter, const QRect& panel) const;

    bool composited_;
    /// Keeps its picture from one painting to the next.
    mutable Shadow shadow_;
};

} // namespace platform
