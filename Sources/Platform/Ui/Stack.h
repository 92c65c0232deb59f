// Layouts as nested calls: rows and columns of widgets, with spacing, alignment and padding.
#pragma once

#include <QBoxLayout>
#include <QMargins>

#include <initializer_list>

namespace platform {

/// One entry of a row or column.
class StackItem {
public:
    StackItem(QWidget* widget)
        : widget_(widget)
    {
    }
    StackItem(QLayout* layout)
        : layout_(layout)
    {
    }

private:
    friend StackItem flexible(StackItem item);
    friend StackItem spacer(int points);
    friend void addTo(QBoxLayout& layout, const StackItem& item, Qt::Alignment cross);
    StackItem() = default;

    QWidget* widget_ = nullptr;
    QLayout* layout_ = nullptr;
    int points_ = 0;
    int stretch_ = 0;
};

/// Takes all the room that is left along the stack.
[[nodiscard]] StackItem flexible(StackItem item);

/// Empty room: `points` of it, or all that is left when that is 0.
[[nodiscard]] StackItem spacer(int points = 0);

/// A row, its items centred vertically unless `cross` says otherwise; no alignment stretches them.
/// Items that want to expand across the stack (by their size policy) are always stretched.
[[nodiscard]] QHBoxLayout* hstack(
    int spacing, std::initializer_list<StackItem> items, Qt::Alignment cross = Qt::AlignVCenter);

/// A column, its items at the leading edge unless `cross` says otherwise.
[[nodiscard]] QVBoxLayout* vstack(
    int spacing, std::initializer_list<StackItem> items, Qt::Alignment cross = Qt::AlignLeading);

/// The same layout with room around its items.
[[nodiscard]] QBoxLayout* padded(QBoxLayout* layout, const QMargins& padding);
[[nodiscard]] QBoxLayout* padded(QBoxLayout* layout, int horizontal, int vertical);

/// A plain widget that holds the layout.
[[nodiscard]] QWidget* hosted(QLayout* layout);

} // namespace platform
