#include "Grid.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform {

Grid::Grid(int columnGap, int rowGap, MakeCell makeCell, FillCell fillCell, QWidget* parent)
    : QWidget(parent)
    , columnGap_(columnGap)
    , rowGap_(rowGap)
    , makeCell_(std::move(makeCell))
    , fillCell_(std::move(fillCell))
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Grid::setCells(const std::vector<std::string>& ids, std::size_t columns)
{
    auto old = std::exchange(cells_, {});
    auto orderChanged = old.size() != ids.size();
    for (const auto& id : ids) {
        const auto kept = std::find_if(old.begin(), old.end(),
            [&id](const Cell& cell) { return cell.widget != nullptr && cell.id == id; });
        orderChanged |= kept == old.end() || kept - old.begin() != std::ssize(cells_);
        auto* widget = kept != old.end() ? std::exchange(kept->widget, nullptr) : makeCell_(this);
        cells_.push_back({ id, widget });
        fillCell_(*widget, cells_.size() - 1);
    }
    for (const auto& cell : old) {
        // Not at once: the cell may be the one whose click is being handled.
        if (cell.widget != nullptr) {
            cell.widget->hide();
            cell.widget->deleteLater();
        }
    }
    if (orderChanged) {
        for (std::size_t i = 1; i < cells_.size(); ++i)
            setTabOrder(cells_[i - 1].widget, cells_[i].widget);
    }
    const auto changedColumns = std::exchange(columns_, columns) != columns;
    if (orderChanged || changedColumns) {
        updateGeometry();
        layOut();
    }
}

QSize Grid::sizeHint() const
{
    return minimumSizeHint();
}

QSize Grid::minimumSizeHint() const
{
    if (columns_ == 0 || cells_.empty())
        return { 0, 0 };
    constexpr int kNarrowest = 10;
    const auto columns = static_cast<int>(columns_);
    const auto rows = static_cast<int>((cells_.size() + columns_ - 1) / columns_);
    return { columns * kNarrowest + (columns - 1) * columnGap_,
        rows * cellHeight() + (rows - 1) * rowGap_ };
}

void Grid::resizeEvent(QResizeEvent* /*event*/)
{
    layOut();
}

void Grid::layOut()
{
    if (columns_ == 0) {
        for (const auto& cell : cells_)
            cell.widget->hide();
        return;
    }
    const auto gaps = columnGap_ * (static_cast<double>(columns_) - 1);
    const auto columnWidth = (width() - gaps) / static_cast<double>(columns_);
    const auto height = cellHeight();
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        const auto place = static_cast<double>(i % columns_);
        const auto start = place * (columnWidth + columnGap_);
        const auto left = static_cast<int>(std::lround(start));
        const auto right = static_cast<int>(std::lround(start + columnWidth));
        const auto row = static_cast<int>(i / columns_);
        const auto x = layoutDirection() == Qt::LeftToRight ? left : width() - right;
        cells_[i].widget->setGeometry(x, row * (height + rowGap_), right - left, height);
        cells_[i].widget->show();
    }
}

int Grid::cellHeight() const
{
    return cells_.empty() ? 0 : cells_.front().widget->sizeHint().height();
}

} // namespace platform
