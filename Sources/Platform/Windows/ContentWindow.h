// An ordinary window of fixed size around one widget.
#pragma once

#include "ContentViewport.h"
#include "OrdinaryWindow.h"

#include <QString>

#include <functional>

namespace platform {

/// Closing only hides it.
class ContentWindow : public OrdinaryWindow {
public:
    struct Title {
        QString text;
        /// Of the header with which the content begins, where that does for a title bar.
        int headerHeight = 0;
    };

    /// `closed` is called after the user has closed the window, `escape` for the key.
    ContentWindow(
        const Title& title, std::function<void()> closed, std::function<void()> escape = {});

    /// Takes the widget as the whole content, as large as it may get on the screen.
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
    void centre();

    std::function<void()> closed_;
    ContentViewport viewport_;
    bool wasUsed_ = false;
    /// The frame is not there yet that the window is centred with.
    bool awaitsFrame_ = false;
};

} // namespace platform
