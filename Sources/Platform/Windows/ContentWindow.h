// An ordinary window of fixed size around one widget.
#pragma once

#include "ContentViewport.h"
#include "Window.h"

#include <QString>

#include <functional>

namespace platform {

/// Titled, closable and minimisable. Closing only hides it.
class ContentWindow : public Window {
public:
    /// `closed` is called after the user has closed the window, `escape` for the key.
    ContentWindow(
        const QString& title, std::function<void()> closed, std::function<void()> escape = {});

    /// Takes the widget, which has a fixed size, as the whole content.
    void setContent(QWidget* content);
    /// Gives the content back, hidden and without a parent; null if there is none.
    [[nodiscard]] QWidget* takeContent() { return viewport_.takeContent(); }

    /// Shows the window in front with the focus, at first in the middle of its screen.
    void present();

    /// True once the user has clicked, scrolled or typed in the window since it last opened.
    [[nodiscard]] bool wasUsed() const { return wasUsed_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fitToScreen();

    std::function<void()> closed_;
    ContentViewport viewport_;
    bool wasUsed_ = false;
};

} // namespace platform
