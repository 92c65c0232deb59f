#include "ContentViewport.h"

#include "ScrollArea.h"

#include <utility>

namespace platform {

ContentViewport::ContentViewport(QWidget* parent)
    : QWidget(parent)
{
}

void ContentViewport::setContent(QWidget* content)
{
    content_ = content;
    content->setParent(this);
    content->move(0, 0);
    content->show();
    fit();
    // The keys that nobody inside takes belong to the content.
    window()->setFocusProxy(content);
    content->setFocus();
}

QWidget* ContentViewport::takeContent()
{
    auto* content = std::exchange(content_, nullptr);
    if (content == nullptr)
        return nullptr;
    content->hide();
    window()->setFocusProxy(nullptr);
    content->setParent(nullptr);
    delete std::exchange(scroller_, nullptr);
    return content;
}

QSize ContentViewport::sizeHint() const
{
    return content_ != nullptr ? content_->maximumSize() : QSize();
}

void ContentViewport::resizeEvent(QResizeEvent* /*event*/)
{
    fit();
}

void ContentViewport::fit()
{
    if (content_ == nullptr)
        return;
    const auto least = content_->minimumSize();
    const bool fits = width() >= least.width() && height() >= least.height();
    if (!fits && scroller_ == nullptr) {
        scroller_ = new ScrollArea(content_, this);
        scroller_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        scroller_->show();
    } else if (fits && scroller_ != nullptr) {
        setContent(takeContent());
    }
    if (scroller_ != nullptr)
        scroller_->setGeometry(rect());
    else
        content_->resize(size().boundedTo(content_->maximumSize()));
}

} // namespace platform
