// The menu of a button, or of a place in a window.
#pragma once

#include "FloatingPlate.h"
#include "Motion.h"
#include "Symbols.h"
#include "Tint.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace platform {

class Button;

/// A row of a menu; one without a text is a divider, one without an action a heading.
struct MenuItem {
    QString text;
    std::optional<Symbol> symbol;
    std::function<void()> action;
    /// Set for a row that is one of a choice, or a switch: what is on has a tick.
    std::optional<bool> isOn {};
};

/// A menu inside its window, so that it looks the same with and without a compositor and the window
/// keeps the focus of the desktop. It opens 6 points from what it belongs to, where there is room;
/// where there is too little, it scrolls. Arrow keys, Home, End, Return, Space, Escape and the
/// first letter of a row work; a click outside, Tab, or another window closes it. It deletes itself
/// when it is closed; the focus returns to where it was.
class PopupMenu : public QWidget, public Tinted {
    Q_OBJECT
public:
    /// Shows the menu of `button`, their trailing edges in line; `byKeyboard` selects a row
    /// at once: the one that is on, else the first.
    static PopupMenu* open(
        Button& button, std::vector<MenuItem> items, const Tint& tint, bool byKeyboard = false);
    /// Shows the menu `name` of an area of `owner`, their leading edges in line, at least as wide;
    /// an empty area is the place of the pointer.
    static PopupMenu* openAt(QWidget& owner, const QRect& area, const QString& name,
        std::vector<MenuItem> items, const Tint& tint, bool byKeyboard = false);
    ~PopupMenu() override;

    void setTint(const Tint& tint) override;
    /// Closes without an action.
    void dismiss();

    /// The menu's plate inside this widget, which covers the whole window.
    [[nodiscard]] QRect plate() const { return plate_; }
    /// The selected row, -1 when none is.
    [[nodiscard]] int selected() const { return selected_; }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    class Row;
    PopupMenu(QWidget& owner, const QRect& area, const QString& name, std::vector<MenuItem> items,
        const Tint& tint);
    void appear(bool byKeyboard);
    void setOpen(bool open);
    void place();
    [[nodiscard]] QSize neededSize(int areaWidth) const;
    [[nodiscard]] int heightOf(std::size_t index) const;
    /// Where the rows are seen.
    [[nodiscard]] QRect inside() const;
    void layOutRows();
    void scrollTo(int offset);
    void reveal(int index);
    /// The pointer is on a row, or on none. One that only rests where a row has appeared selects
    /// nothing.
    void point(int index, const QPoint& pointer);
    void select(int index);
    /// Selects the next row that begins with `letter`, if it is one.
    void selectNext(int step, const QString& letter = {});
    void choose(int index);

    QPointer<QWidget> owner_;
    QRect area_;
    QPointer<QWidget> focusBefore_;
    std::vector<MenuItem> items_;
    std::vector<Row*> rows_;
    Tint tint_;
    QRect plate_;
    int selected_ = -1;
    /// How far the rows are scrolled.
    int offset_ = 0;
    bool closing_ = false;
    FloatingPlate ground_;
    /// Where the pointer was when the menu opened, until it moves.
    std::optional<QPoint> restingPointer_;
    Fade opacity_;
};

} // namespace platform
