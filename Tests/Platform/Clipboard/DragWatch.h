// Whether a color is dragged, for the tests of what begins such a drag.
#pragma once

#include "ColorDrag.h"

#include <QApplication>

#include <functional>

namespace platform {

/// Hears every drag begin, from the events that any drag brings to the application.
class DragWatch final : public QObject {
public:
    DragWatch() { qApp->installEventFilter(this); }
    int count = 0;
    std::function<void()> onDrag = [] {};

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* /*event*/) override
    {
        const bool began = isColorDragRunning() && !isRunning_;
        isRunning_ = isColorDragRunning();
        if (began) {
            ++count;
            onDrag();
        }
        return false;
    }

private:
    bool isRunning_ = false;
};

} // namespace platform
