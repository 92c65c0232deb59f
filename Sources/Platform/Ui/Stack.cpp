#include "Stack.h"

#include <QWidget>

namespace platform {

StackItem flexible(StackItem item)
{
    item.stretch_ = 1;
    return item;
}

StackItem spacer(int points)
{
    StackItem item;
    item.points_ = points;
    item.stretch_ = points == 0 ? 1 : 0;
    return item;
}

void addTo(QBoxLayout& layout, const StackItem& item, Qt::Alignment cross)
{
    const auto isRow = layout.direction() == QBoxLayout::LeftToRight;
    const auto crossDirection = isRow ? Qt::Vertical : Qt::Horizontal;
    const auto alignment = [&](Qt::Orientations expanding) {
        return expanding.testFlag(crossDirection) ? Qt::Alignment() : cross;
    };
    if (item.widget_ != nullptr) {
        layout.addWidget(item.widget_, item.stretch_,
            alignment(item.widget_->sizePolicy().expandingDirections()));
    } else if (item.layout_ != nullptr) {
        layout.addLayout(item.layout_, item.stretch_);
        layout.setAlignment(item.layout_, alignment(item.layout_->expandingDirections()));
    } else if (item.points_ > 0) {
        layout.addSpacing(item.points_);
    } else {
        layout.addStretch(item.stretch_);
    }
}

namespace {

template <typename Layout>
Layout* makeStack(int spacing, std::initializer_list<StackItem> items, Qt::Alignment cross)
{
    auto* layout = new Layout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    for (const auto& item : items)
        addTo(*layout, item, cross);
    return layout;
}

} // namespace

QHBoxLayout* hstack(int spacing, std::initializer_list<StackItem> items, Qt::Alignment cross)
{
    return makeStack<QHBoxLayout>(spacing, items, cross);
}

QVBoxLayout* vstack(int spacing, std::initializer_list<StackItem> items, Qt::Alignment cross)
{
    return makeStack<QVBoxLayout>(spacing, items, cross);
}

QBoxLayout* padded(QBoxLayout* layout, const QMargins& padding)
{
    layout->setContentsMargins(padding);
    return layout;
}

QBoxLayout* padded(QBoxLayout* layout, int horizontal, int vertical)
{
    return padded(layout, QMargins(horizontal, vertical, horizontal, vertical));
}

QWidget* hosted(QLayout* layout)
{
    auto* widget = new QWidget;
    widget->setLayout(layout);
    return widget;
}

} // namespace platform
