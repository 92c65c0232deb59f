// Shows a widget in whatever room there is.
#pragma once

#include <QWidget>

namespace platform {

class ScrollArea;

/// The content is as large as its maximum, or as the room; below its minimum it scrolls.
class ContentViewport : public QWidget {
public:
    explicit ContentViewport(QWidget* parent);

    /// Takes the widget, which has a maximum size.
    void setContent(QWidget* content);
    /// Gives the content back, hidden and without a parent; null if there is none.
    [[nodiscard]] QWidget* takeContent();

    /// The content's largest size; empty without one.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fit();

    QWidget* content_ = nullptr;
    ScrollArea* scroller_ = nullptr;
};

} // namespace platform
