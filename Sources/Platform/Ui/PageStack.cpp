#include "PageStack.h"

#include "ThemeSource.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace platform {

QPixmap pictureOf(QWidget& widget)
{
    const auto scale = widget.devicePixelRatioF();
    QPixmap picture(widget.size() * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    if (!picture.isNull())
        widget.render(&picture, {}, {}, QWidget::DrawChildren);
    return picture;
}

/// Lies over the pages while they move and paints them, so that the real ones need not move.
class PageStack::Curtain : public QWidget {
public:
    explicit Curtain(PageStack& stack)
        : QWidget(&stack)
        , stack_(stack)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_OpaquePaintEvent);
        setGeometry(stack.rect());
        show();
        raise();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), currentTheme().windowBackground);
        stack_.paintMovement(painter);
    }

private:
    const PageStack& stack_;
};

void PageStack::addPage(QWidget* page, PageEdge edge)
{
    pages_.emplace(page, edge);
    page->setParent(this);
    page->setGeometry(rect());
    if (current_ == nullptr)
        current_ = page;
    page->setVisible(page == current_);
}

void PageStack::showPage(QWidget* page, const std::optional<Spring>& spring)
{
    if (page == current_)
        return;
    motion_.finish();
    leaving_ = current_;
    current_ = page;
    page->setGeometry(rect());
    motion_.follow(
        isVisible() ? spring : std::nullopt,
        [this](double progress) {
            progress_ = progress;
            if (curtain_ != nullptr)
                curtain_->update();
        },
        [this] {
            leavingPicture_ = {};
            delete std::exchange(curtain_, nullptr);
        });
    const auto moves = isMoving() && leaving_ != nullptr;
    if (moves)
        leavingPicture_ = pictureOf(*leaving_);
    // In this order a focus inside the old page goes to what is before the pages.
    if (leaving_ != nullptr)
        leaving_->hide();
    page->show();
    if (moves)
        curtain_ = new Curtain(*this);
}

QSize PageStack::sizeHint() const
{
    QSize size;
    for (const auto& [page, edge] : pages_)
        size = size.expandedTo(page->sizeHint());
    return size;
}

void PageStack::resizeEvent(QResizeEvent* /*event*/)
{
    motion_.finish();
    if (current_ != nullptr)
        current_->setGeometry(rect());
}

double PageStack::offsetOf(const QWidget* page) const
{
    const auto side = layoutDirection() == Qt::LeftToRight ? 1 : -1;
    return side * static_cast<int>(pages_.at(page)) * width();
}

void PageStack::paintMovement(QPainter& painter) const
{
    const auto opacity = std::clamp(progress_, 0.0, 1.0);
    painter.setClipRect(rect());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(1 - opacity);
    painter.drawPixmap(QPointF(offsetOf(leaving_) * progress_, 0), leavingPicture_);
    painter.setOpacity(opacity);
    painter.drawPixmap(QPointF(offsetOf(current_) * (1 - progress_), 0), pictureOf(*current_));
}

} // namespace platform
