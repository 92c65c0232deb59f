// The place of a window on Plasma's Wayland desktop.
#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>

class QScreen;
class QWindow;
struct org_kde_plasma_surface;

namespace platform {

/// Wayland leaves the place of a window to the desktop; Plasma lets its own parts choose, by the
/// protocol "org_kde_plasma_shell", and refuses nobody. The window stands where it is told to, each
/// time that it is shown, in front of ordinary windows and out of the task bar.
class PlasmaPlacement : public QObject {
public:
    /// True on Plasma's Wayland desktop.
    [[nodiscard]] static bool isPossible();
    /// The part of the screen that no bar covers, if Plasma says so.
    [[nodiscard]] static QRect availableGeometry(const QScreen& screen);

    /// `window` takes presses inside `input` alone, which is in its own coordinates. Goes before
    /// the window does.
    PlasmaPlacement(QWindow& window, QPoint position, const QRect& input);
    ~PlasmaPlacement() override { release(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();
    void release();

    QWindow& window_;
    QPoint position_;
    QRect input_;
    org_kde_plasma_surface* surface_ = nullptr;
};

} // namespace platform
