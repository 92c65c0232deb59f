// What every window of the application does in the same way.
#pragma once

#include <QWidget>

#include <functional>

namespace platform {

/// Tab goes through its controls in the order of reading, nothing is marked before the keyboard is
/// used, Escape does what it is told to, and to assistive technologies it is a window.
class Window : public QWidget {
public:
    explicit Window(Qt::WindowFlags flags = {}, std::function<void()> escape = {});

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::function<void()> escape_;
};

} // namespace platform
