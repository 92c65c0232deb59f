#include "RecyclingList.h"

#include "Accessibility.h"
#include "ScrollArea.h"

#include <QKeyEvent>

#include <algorithm>

namespace platform {

RecyclingList::RecyclingList(int rowHeight, MakeRow makeRow, FillRow fillRow, QWidget* parent)
    : QWidget(parent)
    , rowHeight_(rowHeight)
    , makeRow_(std::move(makeRow))
    , fillRow_(std::move(fillRow))
{
    setAccessibleRole(*this, QAccessible::List);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize RecyclingList::sizeHint() const
{
    const auto height = static_cast<double>(count_) * rowHeight_;
    return { 0, static_cast<int>(std::min(height, double { QWIDGETSIZE_MAX })) };
}

void RecyclingList::reload(std::size_t count, const std::optional<Spring>& spring)
{
    std::map<std::string, int> places;
    for (const auto& [index, row] : rows_)
        places.emplace(row.key, row.widget->y());
    bool changed = std::exchange(count_, count) != count;
    dropRows(0, count_);
    for (auto& [index, row] : rows_) {
        const auto before = std::exchange(row.key, fillRow_(*row.widget, index));
        changed = changed || row.key != before;
    }
    if (!changed)
        return;
    startAtOldPlaces(places);
    motion_.follow(isVisible() ? spring : std::nullopt,
        [this, from = height(), to = sizeHint().height()](double progress) {
            progress_ = progress;
            setFixedHeight(std::max(0, from + qRound((to - from) * progress)));
            layOut();
        });
}

/// Rows that were not in sight come after the one before them.
void RecyclingList::startAtOldPlaces(const std::map<std::string, int>& places)
{
    int offset = 0;
    for (auto& [index, row] : rows_) {
        if (const auto place = places.find(row.key); place != places.end())
            offset = place->second - static_cast<int>(index) * rowHeight_;
        row.offset = offset;
    }
}

std::pair<std::size_t, std::size_t> RecyclingList::wantedRows() const
{
    const auto* sight = parentWidget();
    if (!sight || count_ == 0)
        return { 0, 0 };
    const int top = std::max(0, -y());
    const auto first = static_cast<std::size_t>(top / rowHeight_);
    const auto last = static_cast<std::size_t>((top + sight->height()) / rowHeight_);
    return { first > 0 ? first - 1 : 0, std::min(count_, last + 2) };
}

/// Rows outside the range become spare ones, but for the focused row where it still exists.
void RecyclingList::dropRows(std::size_t first, std::size_t end)
{
    const auto* focused = window()->focusWidget();
    std::vector<QWidget*> dropped;
    std::erase_if(rows_, [&](const auto& entry) {
        const auto& [index, row] = entry;
        const bool keepsFocus = index < count_ && focused && row.widget->isAncestorOf(focused);
        if ((index >= first && index < end) || keepsFocus)
            return false;
        dropped.push_back(row.widget);
        return true;
    });
    // The focus that leaves a hidden row may scroll, and thus come back to here.
    for (auto* row : dropped) {
        row->hide();
        spare_.push_back(row);
    }
}

QWidget* RecyclingList::takeRow()
{
    if (spare_.empty())
        return makeRow_(this);
    auto* row = spare_.back();
    spare_.pop_back();
    return row;
}

void RecyclingList::buildRows()
{
    const auto [first, end] = wantedRows();
    dropRows(first, end);
    for (auto index = first; index < end; ++index) {
        if (rows_.contains(index))
            continue;
        auto* row = takeRow();
        const auto before = index > 0 ? rows_.find(index - 1) : rows_.end();
        const int offset = before != rows_.end() ? before->second.offset : 0;
        auto key = fillRow_(*row, index);
        rows_.emplace(index, Row { row, std::move(key), offset });
    }
}

void RecyclingList::layOut()
{
    buildRows();
    // A row ends where the rows below it are on their way.
    int below = QWIDGETSIZE_MAX;
    std::for_each(rows_.rbegin(), rows_.rend(), [&](const auto& entry) {
        const auto& [index, row] = entry;
        const int top = static_cast<int>(index) * rowHeight_ + qRound(row.offset * (1 - progress_));
        row.widget->setGeometry(0, top, width(), std::clamp(below - top, 0, rowHeight_));
        row.widget->show();
        below = std::min(below, top);
    });
}

bool RecyclingList::event(QEvent* event)
{
    const auto type = event->type();
    if (type == QEvent::ParentChange && parentWidget())
        parentWidget()->installEventFilter(this);
    if (type == QEvent::Move || type == QEvent::Resize || type == QEvent::Show)
        layOut();
    return QWidget::event(event);
}

void RecyclingList::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if ((key != Qt::Key_Up && key != Qt::Key_Down) || !moveFocus(key == Qt::Key_Down ? 1 : -1))
        QWidget::keyPressEvent(event);
}

bool RecyclingList::moveFocus(int rows)
{
    auto* focused = window()->focusWidget();
    auto* area
        = parentWidget() ? qobject_cast<ScrollArea*>(parentWidget()->parentWidget()) : nullptr;
    if (area)
        area->revealFocus(); // The rows around the focus exist then.
    const auto here = std::find_if(rows_.begin(), rows_.end(),
        [focused](const auto& entry) { return entry.second.widget->isAncestorOf(focused); });
    if (here == rows_.end())
        return false;
    const auto next = rows_.find(here->first + static_cast<std::size_t>(rows));
    if (next == rows_.end())
        return false;
    const auto place = here->second.widget->findChildren<QWidget*>().indexOf(focused);
    next->second.widget->findChildren<QWidget*>().at(place)->setFocus(Qt::TabFocusReason);
    if (area)
        area->revealFocus();
    return true;
}

/// More rows come into sight when the area around the list grows, which the list is not told.
bool RecyclingList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        layOut();
    return QWidget::eventFilter(watched, event);
}

} // namespace platform
