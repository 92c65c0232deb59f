// A scroll area without visible bars.
#pragma once

#include "WheelGlide.h"

#include <QScrollArea>

namespace platform {

/// Scrolls its content vertically: by touch, by the pixels of a touchpad, by the notches of a wheel
/// with a short glide, by keyboard, and to whatever takes the keyboard focus. The content is as
/// wide as the area.
class ScrollArea : public QScrollArea {
    Q_OBJECT
public:
    explicit ScrollArea(QWidget* content, QWidget* parent = nullptr);

    void scrollToTop();

    /// Scrolls as far as the control with the keyboard focus, if it is inside, comes into sight.
    void revealFocus();

    /// As wide as the content and no height of its own: it takes what is left. The toolkit's answer
    /// would load the font that nothing here is set in.
    [[nodiscard]] QSize sizeHint() const override { return { widget()->sizeHint().width(), 0 }; }

protected:
    void wheelEvent(QWheelEvent* event) override { glide_.turn(*event); }
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    WheelGlide glide_;
};

} // namespace platform
