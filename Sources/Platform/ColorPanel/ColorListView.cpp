#include "ColorListView.h"

#include "ColorDrag.h"
#include "Shapes.h"
#include "SwatchPainting.h"
#include "TextPainting.h"
#include "ThemeSource.h"
#include "ToolkitColor.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>
#include <QScroller>
#include <QStyledItemDelegate>

namespace platform {

namespace {

/// Holds the name and the hex text.
constexpr int searchedRole = Qt::UserRole;
constexpr int rowHeight = 30;
constexpr double rowRadius = 7;
constexpr double swatch = 20;
constexpr double swatchRadius = 5;
constexpr double leading = 8;
constexpr double gap = 10;
constexpr double trailing = 10;
constexpr TextStyle nameStyle { .size = 12, .weight = QFont::Medium };
constexpr TextStyle hexStyle { .size = 11, .design = FontDesign::monospaced };

QColor colorOf(const QModelIndex& index)
{
    return index.data(Qt::DecorationRole).value<QColor>();
}

QStandardItem* rowOf(const QString& name, const QColor& color)
{
    auto* row = new QStandardItem(name);
    row->setData(color, Qt::DecorationRole);
    row->setData(name + QStringLiteral(", ") + hexText(color), Qt::AccessibleTextRole);
    row->setData(name + QLatin1Char('\n') + hexText(color), searchedRole);
    return row;
}

class RowPainter final : public QStyledItemDelegate {
public:
    RowPainter(ColorListView::InkOn inkOn, QObject* parent)
        : QStyledItemDelegate(parent)
        , inkOn_(std::move(inkOn))
    {
    }

    [[nodiscard]] QSize sizeHint(
        const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const override
    {
        return { 0, rowHeight };
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override
    {
        const auto color = colorOf(index);
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        const auto ink = isSelected ? inkOn_(color) : QColor();
        painter->save();
        painter->translate(option.rect.topLeft());
        const QRectF row(QPointF(), option.rect.size());
        if (isSelected)
            paintPlate(*painter, row, rowRadius, QColor(color.rgb()));
        if (option.state.testFlag(QStyle::State_HasFocus))
            paintPlate(*painter, row, rowRadius, Qt::transparent,
                isSelected ? ink : currentTheme().secondary, 2);
        const QRectF box(leading, (row.height() - swatch) / 2, swatch, swatch);
        if (isSelected)
            paintSwatch(*painter, box, swatchRadius, color, faded(ink, 0.5), 1);
        else
            paintSwatch(*painter, box, swatchRadius, color);
        paintTexts(*painter, row.width(), index, ink);
        painter->restore();
    }

private:
    /// `ink` is valid on a selected row.
    static void paintTexts(
        QPainter& painter, double width, const QModelIndex& index, const QColor& ink)
    {
        const auto& theme = currentTheme();
        const auto hex = hexText(colorOf(index));
        const double hexX
            = width - trailing - QFontMetricsF(fontOf(hexStyle)).horizontalAdvance(hex);
        const double nameX = leading + swatch + gap;
        paintLine(painter, { nameX, 0, hexX - gap - nameX, rowHeight }, index.data().toString(),
            nameStyle, ink.isValid() ? ink : theme.text);
        paintLine(painter, { hexX, 0, width - hexX, rowHeight }, hex, hexStyle,
            ink.isValid() ? faded(ink, 0.8) : theme.tertiary);
    }

    ColorListView::InkOn inkOn_;
};

} // namespace

ColorListView::ColorListView(
    InkOn inkOn, std::function<void(const QColor&)> chosen, QWidget* parent)
    : QListView(parent)
    , chosen_(std::move(chosen))
    , glide_(*this)
{
    matches_.setSourceModel(&rows_);
    matches_.setFilterRole(searchedRole);
    matches_.setFilterCaseSensitivity(Qt::CaseInsensitive);
    setModel(&matches_);
    setItemDelegate(new RowPainter(std::move(inkOn), this));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setDragDropMode(DragOnly);
    viewport()->setAutoFillBackground(false);
    QScroller::grabGesture(viewport(), QScroller::TouchGesture);
    setMouseTracking(true);
    connect(this, &QListView::entered, this, [this] { viewport()->setCursor(Qt::OpenHandCursor); });
    connect(this, &QListView::viewportEntered, this, [this] { viewport()->unsetCursor(); });
    connect(this, &QListView::clicked, this, &ColorListView::choose);
}

void ColorListView::show(const ColorList* list)
{
    const int current = currentIndex().row();
    rows_.clear();
    if (list != nullptr) {
        QList<QStandardItem*> rows;
        for (const auto& [name, color] : list->colors())
            rows += rowOf(QString::fromStdString(name), toQColor(color));
        rows_.invisibleRootItem()->appendRows(rows);
    }
    selectChosen();
    if (current >= 0 && !isEmpty())
        setCurrentIndex(matches_.index(std::min(current, matches_.rowCount() - 1), 0));
}

void ColorListView::search(const QString& text)
{
    matches_.setFilterFixedString(text);
    selectChosen();
}

void ColorListView::selectChosen()
{
    // Nothing to go to by keyboard where there is nothing.
    setFocusPolicy(isEmpty() ? Qt::NoFocus : Qt::TabFocus);
    const auto found = matches_.match(matches_.index(0, 0), Qt::DisplayRole, chosenName_, 1,
        Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (!found.isEmpty())
        selectionModel()->select(found.front(), QItemSelectionModel::Select);
}

void ColorListView::choose(const QModelIndex& index)
{
    if (!index.isValid())
        return;
    chosenName_.clear();
    clearSelection();
    selectionModel()->select(index, QItemSelectionModel::Select);
}

/// Readers select a row to choose it.
void ColorListView::selectionChanged(
    const QItemSelection& selected, const QItemSelection& deselected)
{
    QListView::selectionChanged(selected, deselected);
    const auto indexes = selected.indexes();
    if (indexes.isEmpty() || indexes.front().data().toString() == chosenName_)
        return;
    chosenName_ = indexes.front().data().toString();
    chosen_(colorOf(indexes.front()));
}

/// Going to a row does not choose it.
QItemSelectionModel::SelectionFlags ColorListView::selectionCommand(
    const QModelIndex& /*index*/, const QEvent* /*event*/) const
{
    return QItemSelectionModel::NoUpdate;
}

void ColorListView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        return choose(currentIndex());
    default:
        QListView::keyPressEvent(event);
    }
}

void ColorListView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    QListView::mousePressEvent(event);
    // By itself the toolkit drags only rows that are selected.
    if (indexAt(event->position().toPoint()).isValid())
        setState(DraggingState);
}

void ColorListView::startDrag(Qt::DropActions /*actions*/)
{
    runColorDrag(colorOf(currentIndex()), devicePixelRatioF());
}

} // namespace platform
