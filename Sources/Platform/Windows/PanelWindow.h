// The panel that opens beside the status item.
#pragma once

#include "ContentViewport.h"
#include "FrameCorners.h"
#include "Motion.h"
#include "PanelFrame.h"
#include "PanelPlacement.h"
#include "PlasmaPlacement.h"
#include "Window.h"

#include <QMargins>
#include <QRect>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

namespace platform {

class X11Display;

/// A frameless window for desktops where a program may place its windows itself. It closes when the
/// user turns to something else: another program, or an ordinary window with content of its own.
class PanelWindow : public Window {
public:
    /// True on X11 and on Plasma.
    [[nodiscard]] static bool isPossible();
    /// The part of the screen that no bar covers.
    [[nodiscard]] static QRect availableGeometry(const QScreen& screen);

    /// `staysOpen` is true while the panel stays although another window has the focus, such as
    /// during a pick.
    explicit PanelWindow(std::function<bool()> staysOpen);
    ~PanelWindow() override;

    /// Takes the widget, which has a fixed size, as the whole content.
    void setContent(QWidget* content) { viewport_.setContent(content); }
    /// Gives the content back, hidden and without a parent; null if there is none.
    [[nodiscard]] QWidget* takeContent();

    /// Opens beside `anchor`, or closes. The click that has just taken the focus away, and so
    /// closed the panel, does not open it again.
    void toggle(const QRect& anchor);
    void openBeside(const QRect& anchor);
    void dismiss();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// A press outside that closes the panel as soon as it ends.
    struct ClosingPress {
        QPoint pointer;
        std::chrono::steady_clock::time_point time;
    };

    void followFocus(const QWindow* focus);
    void followButton();
    void setComposited(bool composited);
    /// The panel inside its window, which is larger by the shadow.
    [[nodiscard]] QRect panelRect() const;
    void layOut();
    void prepareNativeWindow(const X11Display& display);
    /// `shown` runs from 0 to 1.
    void showOpening(double shown);

    std::function<bool()> staysOpen_;
    ContentViewport viewport_;
    PanelFrame frame_ { /*composited=*/false };
    FrameCorners corners_;
    PanelPlacement placement_;
    QMargins room_;
    std::optional<PlasmaPlacement> onPlasma_;
    Motion opening_;
    std::optional<ClosingPress> closingPress_;
    /// Looks for the end of a press that took the focus away.
    QTimer release_;
    /// Runs while a lost focus may still be that of a window hidden before.
    QTimer settling_;
};

} // namespace platform
