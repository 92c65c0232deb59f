// What every window of the application does in the same way.
#pragma once

#include <QWidget>

#include <functional>

namespace platform {

/// A part of a window that the Tab key passes in one step; inside it the arrow keys move.
class TabGroup {
public:
    virtual ~TabGroup() = default;

    /// Where Tab stops, the control with the focus if it is inside; null where there is none.
    [[nodiscard]] virtual QWidget* tabStop() const = 0;
};

/// Nothing is marked before the keyboard is used, Escape does what it is told to, and to assistive
/// technologies it is a window.
///
/// Tab goes through its controls as one reads: parts from top to bottom, those side by side from
/// the leading edge, each with all of its controls before the next part; after the last comes the
/// first. (The toolkit's own order is that of making.)
class Window : public QWidget {
public:
    /// An ordinary window of fixed size: titled, closable and minimisable.
    static constexpr Qt::WindowFlags ordinary = Qt::CustomizeWindowHint | Qt::WindowTitleHint
        | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;

    explicit Window(Qt::WindowFlags flags = {}, std::function<void()> escape = {});

    /// Shows the window in front, with the focus.
    void present();

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// A Wayland compositor brings a window to the front for a token that it accepts, and every
    /// window that opens.
    void insistOnFront();

    std::function<void()> escape_;
};

} // namespace platform
