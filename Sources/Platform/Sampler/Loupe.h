// The loupe of a pick on X11: the frozen desktop, and the one pixel of it that is looked at.
#pragma once

#include "FrozenDesktop.h"
#include "Label.h"
#include "LoupePainter.h"
#include "LoupeWindow.h"

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <memory>

namespace platform {

/// Freezes the desktop when it is made, and covers it until it is destroyed.
class Loupe : public QObject {
    Q_OBJECT

public:
    /// Nothing when the X server refuses the picture.
    [[nodiscard]] static std::unique_ptr<Loupe> open(
        const X11Display& display, ColorDescriber describe);

    [[nodiscard]] const LoupeWindow& window() const { return *window_; }
    [[nodiscard]] QPoint pixel() const { return pixel_; }
    [[nodiscard]] Color color() const { return desktop_.colorAt(pixel_); }

    void moveTo(QPoint pixel);
    /// A step by key, of which readers are told.
    void step(QPoint by);
    /// Once for all the movements that are waiting.
    void drawSoon();

Q_SIGNALS:
    /// The frozen picture of monitors that have changed shows what is no longer there.
    void outdated();

private:
    Loupe(const X11Display& display, std::unique_ptr<LoupeWindow> window, ColorDescriber describe);
    void watchScreens() const;
    void draw();
    void announce();

    std::unique_ptr<LoupeWindow> window_;
    FrozenDesktop desktop_;
    LoupePainter painter_;
    ColorDescriber describe_;
    QPoint pixel_;
    bool willDraw_ = false;
    /// Never shown: the window is not the toolkit's.
    StatusLine spoken_;
    QTimer speech_;
};

} // namespace platform
