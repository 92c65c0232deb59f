// Every kind of button of the interface.
#pragma once

#include "Motion.h"
#include "Symbols.h"
#include "Tint.h"

#include <QAbstractButton>

#include <optional>

namespace platform {

class FocusRing;

enum class ButtonStyle {
    prominent, ///< Filled with the tint; text, usually with a symbol before it.
    bordered, ///< A quiet plate with a line; a symbol alone.
    borderless, ///< Text in the tint's text colour; a plate only under the pointer.
    destructive, ///< A symbol in the destructive colour; a plate only under the pointer.
    menu, ///< The symbol of a button that opens a menu.
    window ///< Closes or minimises the window.
};

/// A button that is pressed by the mouse, by Space and by Return. A button without text needs an
/// accessible name. The second press of a double click does nothing on one that keeps or deletes
/// something: it would do so twice.
class Button : public QAbstractButton, public Tinted {
    Q_OBJECT
public:
    Button(ButtonStyle style, const QString& text, std::optional<Symbol> symbol,
        QWidget* parent = nullptr);

    /// Changes the label and with it the size.
    void setTitle(const QString& title);
    void setTint(const Tint& tint) override;
    [[nodiscard]] bool opensMenu() const { return style_ == ButtonStyle::menu; }
    /// Keeps the plate of a menu's button while the menu is open.
    void setMenuOpen(bool open);
    [[nodiscard]] bool isMenuOpen() const { return menuOpen_; }

    /// While `clicked` is sent: whether the pointer did it, not a key or a reader.
    [[nodiscard]] bool isClickedByPointer() const { return releasing_; }

    /// Where the text's baseline lies below the button's top.
    [[nodiscard]] double baseline() const;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void updateHover();
    [[nodiscard]] QColor plateColor() const;
    [[nodiscard]] QColor plateEdge() const;
    [[nodiscard]] QColor inkColor() const;
    void paintContent(QPainter& painter, const QColor& ink) const;

    ButtonStyle style_;
    std::optional<Symbol> symbol_;
    Tint tint_;
    QFont font_;
    double textWidth_ = 0;
    bool menuOpen_ = false;
    bool releasing_ = false;
    Fade hover_;
    FocusRing* ring_;
};

/// The makers of the buttons in use; icon buttons take their accessible name, which is also the
/// tooltip of the destructive one.
[[nodiscard]] Button* prominentButton(const QString& text, Symbol symbol);
[[nodiscard]] Button* borderedIcon(Symbol symbol, const QString& name);
[[nodiscard]] Button* borderlessButton(const QString& text);
[[nodiscard]] Button* destructiveIcon(Symbol symbol, const QString& name);
[[nodiscard]] Button* menuButton(const QString& name);
[[nodiscard]] Button* windowButton(Symbol symbol, const QString& name);

} // namespace platform
