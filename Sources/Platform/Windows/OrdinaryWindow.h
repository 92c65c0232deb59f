// A window of fixed size like any other on the desktop.
#pragma once

#include "Window.h"

#include <QRect>
#include <QSize>

#include <functional>
#include <memory>

class QScreen;

namespace platform {

/// Titled, closable and minimisable. Where the desktop draws no frame the window draws its own:
/// round corners, a shadow, and its buttons in a bar with the title, or in the corner of a body
/// whose own header tells what the window is.
class OrdinaryWindow : public Window {
public:
    /// `headerHeight` is that of the body's header, which then moves the window; 0 without one.
    OrdinaryWindow(const QString& title, int headerHeight, std::function<void()> escape);
    ~OrdinaryWindow() override;

protected:
    /// Takes the widget as the whole content, and its size as the window's.
    void setBody(QWidget& body);
    /// What a frame, and bars of which the desktop does not tell, leave of a screen.
    [[nodiscard]] QSize roomOn(const QScreen& screen) const;

    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    struct OwnFrame;

    void layOutOwnFrame(QWidget& body);
    void layOutButtons();
    /// The window inside its shadow.
    [[nodiscard]] QRect panel() const;

    int headerHeight_;
    /// None where the desktop draws one.
    std::unique_ptr<OwnFrame> own_;
};

} // namespace platform
