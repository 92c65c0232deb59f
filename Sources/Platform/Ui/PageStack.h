// One page at a time, with pages that slide and fade past each other.
#pragma once

#include "Motion.h"

#include <QPixmap>
#include <QWidget>

#include <map>
#include <optional>

namespace platform {

/// Where a page comes from and goes to; every page fades as well.
enum class PageEdge { leading = -1, none = 0, trailing = 1 };

/// Shows one of its pages over its whole area. In a movement the old page is a picture of itself
/// and the new one is painted afresh each frame, so that what changes inside it is seen; both are
/// clipped to the stack. Clicks reach the new page at once.
class PageStack : public QWidget {
    Q_OBJECT
public:
    /// Takes the page, hidden unless it is the first.
    void addPage(QWidget* page, PageEdge edge);

    [[nodiscard]] QWidget* currentPage() const { return current_; }
    [[nodiscard]] bool isMoving() const { return motion_.isRunning(); }

    /// Shows `page`, with a spring as a movement, else at once. Nothing happens when it is shown
    /// already.
    void showPage(QWidget* page, const std::optional<Spring>& spring = std::nullopt);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    class Curtain;
    [[nodiscard]] double offsetOf(const QWidget* page) const;
    void paintMovement(QPainter& painter) const;

    std::map<const QWidget*, PageEdge> pages_;
    QWidget* current_ = nullptr;
    QWidget* leaving_ = nullptr;
    QPixmap leavingPicture_;
    double progress_ = 1;
    Curtain* curtain_ = nullptr;
    Motion motion_;
};

/// A picture of `widget` and what it holds, at the scale of its screen, on nothing.
[[nodiscard]] QPixmap pictureOf(QWidget& widget);

} // namespace platform
