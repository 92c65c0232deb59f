#include "ColorListPane.h"

#include "PopupMenu.h"
#include "Shapes.h"
#include "TextPainting.h"
#include "ThemeSource.h"

#include <QCollator>
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
        paintLine(painter, QRectF(10, 0, width() - 44, height()), text(), boxStyle,
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

ColorListPane::ColorListPane(ColorListRegistry registry, std::string firstList,
    ColorListView::InkOn inkOn, std::function<void(const QColor&)> chosen, QWidget* parent)
    : QWidget(parent)
    , registry_(std::move(registry))
    , wanted_(std::move(firstList))
    , button_(new ListButton(this))
    , search_(new TextField(boxStyle, radius, lensSpace, gap, this))
    , colors_(new ColorListView(std::move(inkOn), std::move(chosen), this))
{
    search_->setPlaceholderText(QStringLiteral("Search colors"));
    search_->setAccessibleName(QStringLiteral("Search colors"));
    auto* lens = new Lens(search_);
    lens->setGeometry(0, 0, lensSpace, boxHeight);
    colors_->setAccessibleName(QStringLiteral("Colors"));
    connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) {
        colors_->search(text.trimmed());
        colors_->scrollToTop();
        update();
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
    colors_->setGeometry(sideSpace, listTop, inside, height() - listTop);
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
    colors_->show(list);
    update();
}

void ColorListPane::openListMenu()
{
    std::vector<MenuItem> items;
    for (const auto& list : lists_)
        items.push_back({ QString::fromStdString(list.name()), {},
            [this, name = list.name()] {
                colors_->forgetChosen();
                showList(name);
                colors_->scrollToTop();
            },
            list.name() == shown_ });
    PopupMenu::openAt(*button_, button_->rect(), button_->accessibleName(), std::move(items),
        neutralTint(currentTheme()), /*byKeyboard=*/true);
}

void ColorListPane::paintEvent(QPaintEvent* /*event*/)
{
    if (!colors_->isEmpty())
        return;
    QPainter painter(this);
    painter.setFont(fontOf(hintStyle));
    painter.setPen(currentTheme().tertiary);
    const auto hint = lists_.empty() ? QStringLiteral("Save + Install puts a palette here.")
        : search_->text().trimmed().isEmpty() ? QStringLiteral("This list has no colors.")
                                              : QStringLiteral("No color is called that.");
    painter.drawText(colors_->geometry(), Qt::AlignCenter, hint);
}

} // namespace platform
