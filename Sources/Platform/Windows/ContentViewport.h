// Shows a widget of fixed size in whatever room there is.
#pragma once

#include <QWidget>

namespace platform {

class ScrollArea;

/// As large as its content it simply shows it; smaller, on a small screen, it scrolls.
class ContentViewport : public QWidget {
public:
    explicit ContentViewport(QWidget* parent);

    /// Takes the widget, which has a fixed size.
    void setContent(QWidget* content);
    /// Gives the content back, hidden and without a parent; null if there is none.
    [[nodiscard]] QWidget* takeContent();

    /// The content's size; empty without one.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fit();

    QWidget* content_ = nullptr;
    ScrollArea* scroller_ = nullptr;
};

} // namespace platform
