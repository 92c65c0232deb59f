#include "SwatchGrid.h"

#include "Accessibility.h"
#include "QtColor.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tintwell {

namespace {

using platform::TextStyle;

constexpr int cellSpacing = 5;
constexpr int columnSpacing = 9;
constexpr int rowSpacing = 12;
constexpr double markSize = 13;

/// What differs between the two sizes of a cell.
struct CellStyle {
    int tileHeight;
    double cornerRadius;
    TextStyle name;
};

const CellStyle& styleOf(bool compact)
{
    static const CellStyle regular { 50, 10,
        { .size = 11, .weight = QFont::Medium, .lineHeight = 13 } };
    static const CellStyle small { 38, 8,
        { .size = 10, .weight = QFont::Medium, .lineHeight = 12 } };
    return compact ? small : regular;
}

const TextStyle hexStyle { .size = 9, .design = platform::FontDesign::monospaced };

} // namespace

SwatchCell::SwatchCell(const CellState& state, CopyColor copy, QWidget* parent)
    : QWidget(parent)
    , shown_(state)
    , copy_(std::move(copy))
    , tile_(swatch().makeNSView().release())
    , name_(new platform::Label(styleOf(state.compact).name, &platform::Theme::text, {}, this))
    , hex_(new platform::Label(hexStyle, &platform::Theme::tertiary, {}, this))
    , mark_(new CopiedMark(markSize, this))
    , ring_(new platform::FocusRing(*tile_, styleOf(state.compact).cornerRadius))
    , motion_(*tile_)
{
    tile_->setParent(this);
    mark_->raise();
    showTexts();
}

NativeColorSwatch SwatchCell::swatch() const
{
    return { shown_.namedColor.color, shown_.namedColor.name, styleOf(shown_.compact).cornerRadius,
        [this] { copy_(shown_.namedColor); } };
}

int SwatchCell::heightOf(bool compact)
{
    const auto& style = styleOf(compact);
    return style.tileHeight + style.name.lineHeight + platform::lineHeightOf(hexStyle)
        + 2 * cellSpacing;
}

void SwatchCell::show(const CellState& state, const std::optional<platform::Spring>& spring)
{
    if (state == shown_)
        return;
    shown_ = state;
    motion_.show(swatch(), spring);
    showTexts();
}

void SwatchCell::showTexts()
{
    name_->setText(QString::fromStdString(shown_.namedColor.name));
    hex_->setText(QString::fromStdString(shown_.hex));
    mark_->show(shown_.isCopied, toQColor(shown_.mark));
}

void SwatchCell::resizeEvent(QResizeEvent*)
{
    const auto& style = styleOf(shown_.compact);
    const QRect tile(0, 0, width(), style.tileHeight);
    tile_->setGeometry(tile);
    mark_->setGeometry(tile);
    const int nameTop = style.tileHeight + cellSpacing;
    name_->setGeometry(0, nameTop, width(), style.name.lineHeight);
    hex_->setGeometry(0, nameTop + style.name.lineHeight + cellSpacing, width(),
        platform::lineHeightOf(hexStyle));
}

SwatchGrid::SwatchGrid(CopyColor copy)
    : copy_(std::move(copy))
{
    platform::setAccessibleRole(*this, QAccessible::Grouping);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SwatchGrid::show(const SectionState& state, const std::optional<platform::Spring>& spring)
{
    auto old = std::move(cells_);
    cells_.clear();
    for (const auto& cell : state.cells) {
        const auto kept = std::find_if(old.begin(), old.end(), [&](const SwatchCell* candidate) {
            return candidate && candidate->shown().namedColor.id == cell.namedColor.id
                && candidate->shown().compact == cell.compact;
        });
        if (kept == old.end()) {
            cells_.push_back(new SwatchCell(cell, copy_, this));
            cells_.back()->setVisible(true);
            cells_.back()->tile()->installEventFilter(this);
            continue;
        }
        (*kept)->show(cell, spring);
        cells_.push_back(*kept);
        *kept = nullptr;
    }
    const auto title = QString::fromStdString(state.title);
    platform::setAccessibleTexts(*this, title, {});
    for (auto* cell : cells_)
        cell->tile()->setPlace(title);
    // A cell may be on the stack of the click that made it go.
    for (auto* gone : old)
        if (gone)
            gone->deleteLater();
    columns_ = state.columns;
    updateGeometry();
    layOut();
}

QSize SwatchGrid::sizeHint() const
{
    if (cells_.empty() || columns_ == 0)
        return { 0, 0 };
    const auto rows = static_cast<int>((cells_.size() + columns_ - 1) / columns_);
    const int height = SwatchCell::heightOf(cells_.front()->shown().compact);
    return { 0, rows * height + (rows - 1) * rowSpacing };
}

QWidget* SwatchGrid::tabStop() const
{
    if (focusedLast_ || cells_.empty())
        return focusedLast_;
    return cells_.front()->tile();
}

bool SwatchGrid::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        focusedLast_ = static_cast<QWidget*>(watched);
    return QWidget::eventFilter(watched, event);
}

void SwatchGrid::layOut()
{
    if (cells_.empty() || columns_ == 0)
        return;
    const auto columns = static_cast<int>(columns_);
    const int height = SwatchCell::heightOf(cells_.front()->shown().compact);
    const double pitch = static_cast<double>(width() + columnSpacing) / columns;
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        const auto column = static_cast<int>(i) % columns;
        const auto row = static_cast<int>(i) / columns;
        // Each edge is rounded by itself, so that the last column ends at the grid's own edge.
        const int left = qRound(column * pitch);
        const int right = qRound((column + 1) * pitch - columnSpacing);
        cells_[i]->setGeometry(left, row * (height + rowSpacing), right - left, height);
    }
}

void SwatchGrid::resizeEvent(QResizeEvent*)
{
    layOut();
}

namespace {

/// How far a swatch is in the direction of an arrow key, or nothing when it is not that way. Up
/// and down, the nearest row counts first and the nearest centre in it second.
std::optional<double> distanceInDirection(const QRect& from, const QRect& to, int key)
{
    const auto step = to.center() - from.center();
    const bool sameRow = to.top() == from.top();
    constexpr double rowWeight = 10'000;
    switch (key) {
    case Qt::Key_Left:
        return sameRow && step.x() < 0 ? std::optional<double>(-step.x()) : std::nullopt;
    case Qt::Key_Right:
        return sameRow && step.x() > 0 ? std::optional<double>(step.x()) : std::nullopt;
    case Qt::Key_Up:
    case Qt::Key_Down: {
        const int rows = key == Qt::Key_Up ? from.top() - to.top() : to.top() - from.top();
        return rows > 0 ? std::optional(rows * rowWeight + std::abs(step.x())) : std::nullopt;
    }
    default:
        return std::nullopt;
    }
}

/// The first or the last tile of the grid that `tile` is in, for Home and End.
QWidget* endOfGrid(const QWidget& tile, int key)
{
    const auto* cell = tile.parentWidget();
    const auto* grid = cell ? dynamic_cast<const SwatchGrid*>(cell->parentWidget()) : nullptr;
    if (!grid || (key != Qt::Key_Home && key != Qt::Key_End))
        return nullptr;
    return (key == Qt::Key_Home ? grid->cells().front() : grid->cells().back())->tile();
}

QWidget* neighbour(const QWidget& root, const QWidget& tile, int key)
{
    const auto placeOf = [&root](const QWidget* widget) {
        return QRect(widget->mapTo(&root, QPoint()), widget->size());
    };
    const auto from = placeOf(&tile);
    QWidget* nearest = nullptr;
    double least = std::numeric_limits<double>::infinity();
    for (auto* cell : root.findChildren<SwatchCell*>()) {
        const auto distance = distanceInDirection(from, placeOf(cell->tile()), key);
        if (distance && *distance < least) {
            least = *distance;
            nearest = cell->tile();
        }
    }
    return nearest;
}

} // namespace

bool moveSwatchFocus(QWidget& root, int key)
{
    const auto* focused = root.window()->focusWidget();
    if (!focused || !root.isAncestorOf(focused))
        return false;
    auto* next = endOfGrid(*focused, key);
    if (!next)
        next = neighbour(root, *focused, key);
    if (next)
        next->setFocus(Qt::TabFocusReason);
    return next != nullptr;
}

} // namespace tintwell
