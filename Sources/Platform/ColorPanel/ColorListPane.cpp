// The colour lists of the user.
#include "ColorListPane.h"

#include "ColorMimeData.h"
#include "RecyclingList.h"
#include "ScrollArea.h"
#include "Shapes.h"
#include "TextPainting.h"
#include "ThemeSource.h"

#include <QCollator>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <chrono>

namespace platform {

namespace {

constexpr int topSpace = 20;
constexpr int sideSpace = 16;
constexpr int boxHeight = 30;
constexpr int gap = 10;
constexpr int listGap = 12;
constexpr int rowHeight = 30;
constexpr double radius = 8;
/// A list that is written in several pieces is read once.
constexpr std::chrono::milliseconds settleTime { 60 };
constexpr int lensSpace = 34;
constexpr TextStyle boxStyle { .size = 13 };
constexpr TextStyle hintStyle { .size = 12 };

QPen linePen(const QColor& color)
{
    return { color, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin };
}

/// The lens before the words in a search field.
class Lens final : public QWidget {
public:
    explicit Lens(QWidget* parent)
        : QWidget(parent)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(linePen(currentTheme().secondary));
        const QPointF centre(width() / 2.0 - 1, height() / 2.0 - 1);
        painter.drawEllipse(centre, 4.4, 4.4);
        painter.drawLine(centre + QPointF(3.4, 3.4), centre + QPointF(6.8, 6.8));
    }
};

const ColorList* listNamed(const std::vector<ColorList>& lists, const std::string& name)
{
    const auto found = std::find_if(
        lists.begin(), lists.end(), [&name](const ColorList& list) { return list.name() == name; });
    return found != lists.end() ? &*found : nullptr;
}

} // namespace

/// Names the shown list and opens the choice of lists.
class ColorListPane::ListButton final : public QAbstractButton {
public:
    explicit ListButton(QWidget* parent)
        : QAbstractButton(parent)
    {
        setFocusPolicy(Qt::TabFocus);
        setAccessibleName(QStringLiteral("Color list"));
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        const auto& theme = currentTheme();
        const auto fill = isDown() ? theme.controlPressed
            : underMouse()         ? theme.controlHover
                                   : theme.controlFill;
        paintPlate(
            painter, rect(), radius, fill, hasFocus() ? theme.tertiary : theme.controlStroke);
        const auto font = fontOf(boxStyle);
        const double top = (height() - lineHeightOf(boxStyle)) / 2.0;
        const auto fitted = QFontMetrics(font).elidedText(text(), Qt::ElideRight, width() - 44);
        paintText(painter, { 10, top + baselineOf(boxStyle) }, fitted, font,
            isEnabled() ? theme.text : theme.tertiary);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(linePen(theme.secondary));
        const QPointF middle(width() - 18, height() / 2.0);
        for (const double way : { -1.0, 1.0 }) {
            QPainterPath arrow(middle + QPointF(-3.2, way * 1.9));
            arrow.lineTo(middle + QPointF(0, way * 5.1));
            arrow.lineTo(middle + QPointF(3.2, way * 1.9));
            painter.drawPath(arrow);
        }
    }
};

ColorListPane::ColorListPane(ColorListRegistry registry, Handlers handlers, QWidget* parent)
    : QWidget(parent)
    , registry_(std::move(registry))
    , handlers_(std::move(handlers))
    , wanted_(handlers_.firstList)
    , button_(new ListButton(this))
    , search_(new PlateField(boxStyle, radius, lensSpace, gap, this))
    , rows_(new RecyclingList(
          rowHeight, [](QWidget* parentOfRow) { return new ColorRow(parentOfRow); },
          [this](QWidget& row, std::size_t index) {
              auto& colorRow = static_cast<ColorRow&>(row);
              colorRow.show(rowState(index));
              colorRow.setPressed([this, index] { choose(index); });
          }))
    , scroller_(new ScrollArea(rows_, this))
{
    search_->setPlaceholderText(QStringLiteral("Search colors"));
    search_->setAccessibleName(QStringLiteral("Search colors"));
    auto* lens = new Lens(search_);
    lens->setGeometry(0, 0, lensSpace, boxHeight);
    scroller_->setAccessibleName(QStringLiteral("Colors"));
    rows_->setAccessibleName(QStringLiteral("Colors"));
    scroller_->installEventFilter(this);
    connect(search_, &QLineEdit::textChanged, this, [this] {
        scroller_->scrollToTop();
        filter();
    });
    connect(button_, &QAbstractButton::clicked, this, [this] { openListMenu(); });
    settling_.setSingleShot(true);
    settling_.setInterval(settleTime);
    connect(&settling_, &QTimer::timeout, this, [this] { reload(); });
}

void ColorListPane::resizeEvent(QResizeEvent* /*event*/)
{
    const int inside = width() - 2 * sideSpace;
    button_->setGeometry(sideSpace, topSpace, inside, boxHeight);
    search_->setGeometry(sideSpace, topSpace + boxHeight + gap, inside, boxHeight);
    const int listTop = topSpace + 2 * boxHeight + gap + listGap;
    scroller_->setGeometry(sideSpace, listTop, inside, height() - listTop);
}

void ColorListPane::showEvent(QShowEvent* /*event*/)
{
    watcher_ = std::make_unique<QFileSystemWatcher>();
    const auto settle = [this] {
        if (!settling_.isActive())
            settling_.start();
    };
    connect(watcher_.get(), &QFileSystemWatcher::directoryChanged, this, settle);
    connect(watcher_.get(), &QFileSystemWatcher::fileChanged, this, settle);
    reload();
}

void ColorListPane::hideEvent(QHideEvent* /*event*/)
{
    watcher_.reset();
    settling_.stop();
}

void ColorListPane::reload()
{
    // Watched first, so that no change falls between.
    watchFolder();
    watchFiles();
    lists_ = registry_.availableColorLists();
    // Of any language but "C", which knows no numbers.
    QCollator collator { QLocale(QLocale::English) };
    collator.setNumericMode(true);
    std::stable_sort(lists_.begin(), lists_.end(), [&](const ColorList& a, const ColorList& b) {
        return collator.compare(QString::fromStdString(a.name()), QString::fromStdString(b.name()))
            < 0;
    });
    showList(wanted_);
}

/// A folder that is not there yet cannot be watched; its nearest ancestor tells when it comes.
void ColorListPane::watchFolder()
{
    auto folder = registry_.folder();
    std::error_code error;
    while (!std::filesystem::is_directory(folder, error) && folder.has_relative_path())
        folder = folder.parent_path();
    const auto path = QString::fromStdString(folder.string());
    if (watcher_->directories() == QStringList { path })
        return;
    if (const auto old = watcher_->directories(); !old.isEmpty())
        watcher_->removePaths(old);
    watcher_->addPath(path);
}

/// The folder does not tell of files that are written in place or through a link.
void ColorListPane::watchFiles()
{
    QStringList files;
    for (const auto& file : registry_.listFiles())
        files += QString::fromStdString(file.string());
    for (const auto& old : watcher_->files()) {
        if (!files.removeOne(old))
            watcher_->removePath(old);
    }
    if (!files.isEmpty())
        watcher_->addPaths(files);
}

void ColorListPane::showList(const std::string& name)
{
    wanted_ = name;
    const auto* list = listNamed(lists_, wanted_);
    if (list == nullptr && !lists_.empty())
        list = &lists_.front();
    shown_ = list != nullptr ? list->name() : std::string();
    button_->setText(
        list != nullptr ? QString::fromStdString(shown_) : QStringLiteral("No color lists yet"));
    button_->setAccessibleDescription(QString::fromStdString(shown_));
    button_->setEnabled(list != nullptr);
    filter();
}

void ColorListPane::openListMenu()
{
    QMenu menu;
    QAction* current = nullptr;
    menu.setMinimumWidth(button_->width());
    for (const auto& list : lists_) {
        // A single "&" would mark a key.
        auto* action = menu.addAction(
            QString::fromStdString(list.name()).replace(QLatin1Char('&'), QLatin1String("&&")));
        if (list.name() == shown_)
            current = action;
        connect(action, &QAction::triggered, this, [this, name = list.name()] {
            selectedKey_.clear();
            scroller_->scrollToTop();
            showList(name);
        });
    }
    menu.setActiveAction(current);
    menu.exec(button_->mapToGlobal(QPoint(0, 0)), current);
}

void ColorListPane::filter()
{
    matches_.clear();
    const auto wanted = search_->text().trimmed();
    if (const auto* list = listNamed(lists_, shown_)) {
        const auto& colors = list->colors();
        for (std::size_t index = 0; index < colors.size(); ++index) {
            const auto& [key, color] = colors[index];
            if (wanted.isEmpty()
                || QString::fromStdString(key).contains(wanted, Qt::CaseInsensitive)
                || hexText(toQColor(color)).contains(wanted, Qt::CaseInsensitive))
                matches_.push_back(index);
        }
    }
    current_ = std::min(current_, matches_.empty() ? 0 : matches_.size() - 1);
    // Nothing to go to by keyboard where there is nothing.
    scroller_->setFocusPolicy(matches_.empty() ? Qt::NoFocus : Qt::TabFocus);
    rows_->reload(matches_.size());
    update();
}

ColorRowState ColorListPane::rowState(std::size_t row) const
{
    const auto* list = listNamed(lists_, shown_);
    if (list == nullptr || row >= matches_.size())
        return {};
    const auto& [key, value] = list->colors()[matches_[row]];
    const auto color = toQColor(value);
    const bool selected = key == selectedKey_;
    return { QString::fromStdString(key), color, selected, scroller_->hasFocus() && row == current_,
        selected ? handlers_.inkOn(color) : QColor() };
}

void ColorListPane::choose(std::size_t row)
{
    const auto* list = listNamed(lists_, shown_);
    if (list == nullptr || row >= matches_.size())
        return;
    const auto [key, color] = list->colors()[matches_[row]];
    selectedKey_ = key;
    current_ = row;
    rows_->reload(matches_.size());
    handlers_.chosen(toQColor(color));
}

bool ColorListPane::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == scroller_) {
        if (event->type() == QEvent::FocusIn)
            makeCurrent(current_);
        if (event->type() == QEvent::FocusOut)
            rows_->reload(matches_.size());
        if (event->type() == QEvent::KeyPress)
            return handleKey(static_cast<QKeyEvent*>(event)->key());
    }
    return QWidget::eventFilter(watched, event);
}

bool ColorListPane::handleKey(int key)
{
    if (matches_.empty())
        return false;
    const auto last = matches_.size() - 1;
    const auto page = static_cast<std::size_t>(std::max(1, scroller_->height() / rowHeight));
    switch (key) {
    case Qt::Key_Up:
        makeCurrent(current_ - std::min<std::size_t>(current_, 1));
        return true;
    case Qt::Key_Down:
        makeCurrent(std::min(current_ + 1, last));
        return true;
    case Qt::Key_PageUp:
        makeCurrent(current_ - std::min(current_, page));
        return true;
    case Qt::Key_PageDown:
        makeCurrent(std::min(current_ + page, last));
        return true;
    case Qt::Key_Home:
        makeCurrent(0);
        return true;
    case Qt::Key_End:
        makeCurrent(last);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        choose(current_);
        return true;
    default:
        return false;
    }
}

void ColorListPane::makeCurrent(std::size_t row)
{
    current_ = row;
    const int top = static_cast<int>(row) * rowHeight;
    scroller_->ensureVisible(0, top + rowHeight / 2, 0, rowHeight);
    rows_->reload(matches_.size());
    if (auto* widget = rows_->childAt(0, top + rowHeight / 2)) {
        QAccessibleEvent event(widget, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

void ColorListPane::paintEvent(QPaintEvent* /*event*/)
{
    if (!matches_.empty())
        return;
    QPainter painter(this);
    painter.setFont(fontOf(hintStyle));
    painter.setPen(currentTheme().tertiary);
    const auto hint = lists_.empty() ? QStringLiteral("Save + Install puts a palette here.")
        : search_->text().trimmed().isEmpty() ? QStringLiteral("This list has no colors.")
                                              : QStringLiteral("No color is called that.");
    painter.drawText(scroller_->geometry(), Qt::AlignCenter, hint);
}

} // namespace platform
