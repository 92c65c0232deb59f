#include "PopupMenu.h"

#include "Accessibility.h"
#include "Button.h"
#include "Metrics.h"
#include "Shapes.h"
#include "TextPainting.h"
#include "ThemeSource.h"

#include <QAccessible>
#include <QCursor>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform {

namespace {

constexpr int dividerHeight = 11;
constexpr int dividerLine = 5;
constexpr int dividerInset = 9;
constexpr int headingHeight = 24;
constexpr int leastWidth = 196;
/// Longer names are cut.
constexpr int mostWidth = 400;
constexpr FloatingPlate::Drop near { 2, 3, 0.08 };
constexpr FloatingPlate::Drop far { 12, 14, 0.17 };
/// Points that a menu scrolls for a degree of the wheel, which turns by 15.
constexpr int wheelStep = 4;

constexpr TextStyle rowStyle { .size = 13 };
constexpr TextStyle headingStyle { .size = 11, .weight = QFont::DemiBold };

} // namespace

/// A row that can be chosen: to the pointer and to assistive technologies.
class PopupMenu::Row : public QAbstractButton, public Choice {
public:
    Row(PopupMenu& menu, int index)
        : QAbstractButton(&menu)
        , menu_(menu)
        , index_(index)
    {
        // Before the text, of which readers are told.
        setAccessibleRole(*this, QAccessible::MenuItem);
        const auto& item = menu.items_[static_cast<std::size_t>(index)];
        setText(item.text);
        setCheckable(item.isOn.has_value());
        setChecked(item.isOn.value_or(false));
        setFocusPolicy(Qt::NoFocus);
        setMouseTracking(true);
        QObject::connect(
            this, &QAbstractButton::clicked, &menu, [&menu, index] { menu.choose(index); });
    }

    [[nodiscard]] bool isChosen() const override { return menu_.selected_ == index_; }
    [[nodiscard]] int index() const { return index_; }
    [[nodiscard]] int neededWidth() const
    {
        const auto text = QFontMetricsF(fontOf(rowStyle)).horizontalAdvance(this->text());
        return textLeft() + static_cast<int>(std::ceil(text)) + Metrics::menuRowTrailing;
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const auto& theme = currentTheme();
        const auto& item = menu_.items_[static_cast<std::size_t>(index_)];
        const auto isSelected = isChosen();
        QPainter painter(this);
        // What is cut at an end of a long menu fades out there.
        const auto seen = mask().boundingRect().height() / static_cast<double>(height());
        painter.setOpacity(menu_.opacity_.value() * seen);
        if (isSelected)
            paintPlate(
                painter, rect(), Metrics::menuRowRadius, menu_.tint_.fill, edgeOf(menu_.tint_));
        const auto rightToLeft = layoutDirection() == Qt::RightToLeft;
        if (const auto symbol = isChecked() ? Symbol::checkmark : item.symbol) {
            const auto left = rightToLeft ? width() - Metrics::menuRowLeading - Metrics::menuSymbol
                                          : Metrics::menuRowLeading;
            const QRectF box(left, (height() - Metrics::menuSymbol) / 2.0, Metrics::menuSymbol,
                Metrics::menuSymbol);
            paintSymbol(painter, *symbol, box, isSelected ? menu_.tint_.ink : theme.secondary);
        }
        const auto room = width() - textLeft() - Metrics::menuRowTrailing;
        const auto textWidth
            = std::min<double>(room, QFontMetricsF(fontOf(rowStyle)).horizontalAdvance(text()));
        const auto left = rightToLeft ? width() - textLeft() - textWidth : textLeft();
        paintLine(painter, QRectF(left, 0, room, height()), text(), rowStyle,
            isSelected ? menu_.tint_.ink : theme.text);
    }
    void enterEvent(QEnterEvent* event) override
    {
        menu_.point(index_, event->globalPosition().toPoint());
        QAbstractButton::enterEvent(event);
    }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        menu_.point(index_, event->globalPosition().toPoint());
        QAbstractButton::mouseMoveEvent(event);
    }
    void leaveEvent(QEvent* event) override
    {
        menu_.point(-1, QCursor::pos());
        QAbstractButton::leaveEvent(event);
    }

private:
    static int textLeft()
    {
        return Metrics::menuRowLeading + Metrics::menuSymbol + Metrics::menuSymbolGap;
    }

    PopupMenu& menu_;
    int index_;
};

PopupMenu* PopupMenu::open(
    Button& button, std::vector<MenuItem> items, const Tint& tint, bool byKeyboard)
{
    return openAt(
        button, button.rect(), button.accessibleName(), std::move(items), tint, byKeyboard);
}

PopupMenu* PopupMenu::openAt(QWidget& owner, const QRect& area, const QString& name,
    std::vector<MenuItem> items, const Tint& tint, bool byKeyboard)
{
    auto* menu = new PopupMenu(owner, area, name, std::move(items), tint);
    menu->appear(byKeyboard);
    return menu;
}

PopupMenu::PopupMenu(QWidget& owner, const QRect& area, const QString& name,
    std::vector<MenuItem> items, const Tint& tint)
    : QWidget(owner.window())
    , owner_(&owner)
    , area_(area)
    , focusBefore_(owner.window()->focusWidget())
    , items_(std::move(items))
    , tint_(tint)
    , ground_(Metrics::menuRadius, near, far)
    , restingPointer_(QCursor::pos())
    , opacity_([this] { update(); })
{
    setAccessibleRole(*this, QAccessible::PopupMenu);
    setAccessibleName(name);
    setFocusPolicy(Qt::StrongFocus);
    for (int i = 0; i < static_cast<int>(items_.size()); ++i)
        rows_.push_back(items_[static_cast<std::size_t>(i)].action ? new Row(*this, i) : nullptr);
    setOpen(true);
    window()->installEventFilter(this);
    place();
}

PopupMenu::~PopupMenu()
{
    setOpen(false);
}

void PopupMenu::appear(bool byKeyboard)
{
    show();
    raise();
    setFocus(Qt::PopupFocusReason);
    opacity_.moveTo(1, Metrics::menuFade);
    QAccessibleEvent started(this, QAccessible::PopupMenuStart);
    QAccessible::updateAccessibility(&started);
    if (byKeyboard) {
        const auto on = std::find_if(items_.begin(), items_.end(),
            [](const MenuItem& item) { return item.isOn.value_or(false); });
        selected_ = on == items_.end() ? -1 : static_cast<int>(on - items_.begin()) - 1;
        selectNext(1);
    }
}

void PopupMenu::setOpen(bool open)
{
    if (auto* button = qobject_cast<Button*>(owner_.data()))
        button->setMenuOpen(open);
}

void PopupMenu::setTint(const Tint& tint)
{
    tint_ = tint;
    update();
}

void PopupMenu::dismiss()
{
    if (std::exchange(closing_, true))
        return;
    QAccessibleEvent ended(this, QAccessible::PopupMenuEnd);
    QAccessible::updateAccessibility(&ended);
    hide();
    setOpen(false);
    if (focusBefore_)
        focusBefore_->setFocus(Qt::PopupFocusReason);
    deleteLater();
}

bool PopupMenu::event(QEvent* event)
{
    // The shortcuts of the window rest while the menu is open.
    if (event->type() == QEvent::ShortcutOverride)
        event->accept();
    return QWidget::event(event);
}

bool PopupMenu::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == window()) {
        if (event->type() == QEvent::WindowDeactivate || event->type() == QEvent::Hide)
            dismiss();
        else if (event->type() == QEvent::Resize)
            place();
    }
    return QWidget::eventFilter(watched, event);
}

void PopupMenu::paintEvent(QPaintEvent* /*event*/)
{
    const auto& theme = currentTheme();
    QPainter painter(this);
    painter.setOpacity(opacity_.value());
    ground_.paint(painter, plate_);
    painter.setClipRect(inside());
    auto top = inside().top() - offset_;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const auto inset = Metrics::menuPadding + dividerInset;
        const QRectF line(plate_.left() + inset, top, plate_.width() - 2 * inset, heightOf(i));
        if (items_[i].text.isEmpty())
            fillSharp(painter,
                QRectF(line.left(), top + dividerLine, line.width(), Metrics::separatorThickness),
                theme.separator);
        else if (rows_[i] == nullptr)
            paintLine(painter, line, items_[i].text, headingStyle, theme.secondary);
        top += heightOf(i);
    }
}

void PopupMenu::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Down:
        return selectNext(1);
    case Qt::Key_Up:
        return selectNext(-1);
    case Qt::Key_Home:
        selected_ = -1;
        return selectNext(1);
    case Qt::Key_End:
        selected_ = -1;
        return selectNext(-1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        return choose(selected_);
    case Qt::Key_Escape:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return dismiss();
    default:
        // Nothing below the menu may react while it is open.
        event->accept();
        if (!event->text().isEmpty())
            selectNext(1, event->text());
    }
}

void PopupMenu::mousePressEvent(QMouseEvent* event)
{
    if (!plate_.contains(event->pos()))
        dismiss();
}

void PopupMenu::wheelEvent(QWheelEvent* event)
{
    const auto pixels = event->pixelDelta().y();
    scrollTo(offset_ - (pixels != 0 ? pixels : event->angleDelta().y() / 8 * wheelStep));
    if (const auto* row = dynamic_cast<Row*>(childAt(event->position().toPoint())))
        point(row->index(), event->globalPosition().toPoint());
}

void PopupMenu::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    dismiss();
}

void PopupMenu::place()
{
    setGeometry(window()->rect());
    const QRect area(owner_ ? owner_->mapTo(window(), area_.topLeft()) : QPoint(), area_.size());
    const auto gap = area.isEmpty() ? 0 : Metrics::menuGap;
    const auto below = area.bottom() + 1 + gap;
    const auto above = area.top() - gap;
    const auto roomBelow = height() - Metrics::menuGap - below;
    const auto roomAbove = above - Metrics::menuGap;
    auto size = neededSize(area.width());
    const bool goesBelow = size.height() <= roomBelow || roomBelow >= roomAbove;
    size = size.boundedTo({ width() - 2 * Metrics::menuGap, goesBelow ? roomBelow : roomAbove });
    const bool endsWithIt = qobject_cast<Button*>(owner_.data()) != nullptr;
    const auto left = endsWithIt == (layoutDirection() == Qt::LeftToRight)
        ? area.right() + 1 - size.width()
        : area.left();
    plate_ = QRect(
        QPoint(std::clamp(left, Metrics::menuGap, width() - size.width() - Metrics::menuGap),
            goesBelow ? below : above - size.height()),
        size);
    scrollTo(offset_);
}

QSize PopupMenu::neededSize(int areaWidth) const
{
    QSize size(leastWidth, 2 * Metrics::menuPadding);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        size.rheight() += heightOf(i);
        if (rows_[i] != nullptr)
            size.setWidth(
                std::max(size.width(), rows_[i]->neededWidth() + 2 * Metrics::menuPadding));
    }
    return size.boundedTo({ mostWidth, size.height() }).expandedTo({ areaWidth, 0 });
}

int PopupMenu::heightOf(std::size_t index) const
{
    if (rows_[index] != nullptr)
        return Metrics::menuRowHeight;
    return items_[index].text.isEmpty() ? dividerHeight : headingHeight;
}

QRect PopupMenu::inside() const
{
    return plate_.marginsRemoved(QMargins() + Metrics::menuPadding);
}

void PopupMenu::layOutRows()
{
    const auto inside = this->inside();
    auto top = inside.top() - offset_;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const QRect place(inside.left(), top, inside.width(), heightOf(i));
        top += place.height();
        if (rows_[i] == nullptr)
            continue;
        const auto seen = place & inside;
        rows_[i]->setGeometry(place);
        rows_[i]->setMask(seen.translated(-place.topLeft()));
        rows_[i]->setVisible(!seen.isEmpty());
    }
    update();
}

void PopupMenu::scrollTo(int offset)
{
    const auto longest = neededSize(0).height() - plate_.height();
    offset_ = std::clamp(offset, 0, std::max(0, longest));
    layOutRows();
}

/// Scrolls as far as the row comes into sight; the pointer then rests on another one.
void PopupMenu::reveal(int index)
{
    const auto row = rows_[static_cast<std::size_t>(index)]->geometry();
    const auto inside = this->inside();
    restingPointer_ = QCursor::pos();
    if (row.top() < inside.top())
        scrollTo(offset_ - (inside.top() - row.top()));
    else if (row.bottom() > inside.bottom())
        scrollTo(offset_ + row.bottom() - inside.bottom());
}

void PopupMenu::select(int index)
{
    if (index == selected_)
        return;
    selected_ = index;
    update();
    if (index >= 0) {
        QAccessibleEvent event(rows_[static_cast<std::size_t>(index)], QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

void PopupMenu::point(int index, const QPoint& pointer)
{
    if (std::exchange(restingPointer_, std::nullopt) == pointer) {
        restingPointer_ = pointer;
        return;
    }
    select(index);
}

void PopupMenu::selectNext(int step, const QString& letter)
{
    const auto count = static_cast<int>(rows_.size());
    auto index = selected_ < 0 && step < 0 ? count : selected_;
    for (int tries = 0; tries < count; ++tries) {
        index = (index + step + count) % count;
        const auto* row = rows_[static_cast<std::size_t>(index)];
        if (row == nullptr || !row->text().startsWith(letter, Qt::CaseInsensitive))
            continue;
        reveal(index);
        return select(index);
    }
}

void PopupMenu::choose(int index)
{
    if (index < 0 || closing_)
        return;
    const auto action = items_[static_cast<std::size_t>(index)].action;
    dismiss();
    action();
}

} // namespace platform
