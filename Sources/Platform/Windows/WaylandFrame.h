// What a Wayland compositor leaves to a program about the frame of its window.
#pragma once

#include <QMargins>
#include <QObject>

class QWindow;

namespace platform {

/// True where the desktop draws a frame around every ordinary window: everywhere but on Wayland
/// with a compositor that does not offer it, such as GNOME's.
[[nodiscard]] bool isFramedByDesktop();

/// Tells the compositor which part of a window is the window, and which is the shadow around it:
/// placing, keeping its size and presses concern the former alone.
class WaylandFrame : public QObject {
public:
    /// `window` has a fixed size, `shadow` included, and outlives this.
    WaylandFrame(QWindow& window, const QMargins& shadow);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void mark();

    QWindow& window_;
    QMargins shadow_;
};

} // namespace platform
