// A window with one swatch in a scroll area, for tests that press, drag and read it from outside.
//
// Prints "at X Y W H", the swatch on the screen in device pixels, once it is shown; then "clicked",
// "dragging", "dropped", "scrolled" and "focused" as they happen. A click also copies the colour.
// With "--vanish" the swatch is deleted while it is being dragged.

#include "ColorDrag.h"
#include "MacColorIntegration.h"
#include "NativeColorSwatch.h"
#include "QtPasteboard.h"

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>

#include <iostream>

namespace {

void say(const std::string& line)
{
    std::cout << line << std::endl;
}

class Driver final : public QObject {
public:
    explicit Driver(bool vanishes)
        : vanishes_(vanishes)
    {
        const tintwell::NamedColor named { "source", "Violet", { 1, 0.5, 0.25, 0.5 }, {} };
        auto content = std::make_unique<QWidget>();
        content->resize(200, 900);
        const tintwell::NativeColorSwatch record { named.color, named.name, 10, [this, named] {
                                                      tintwell::ColorPasteboard::write(
                                                          named, pasteboard_);
                                                      say("clicked");
                                                  } };
        swatch_ = record.makeNSView().release();
        swatch_->setParent(content.get());
        swatch_->setGeometry(20, 20, 100, 50);
        area_.setWidget(content.release());
        area_.setWindowTitle(QStringLiteral("Swatch"));
        area_.setGeometry(60, 80, 220, 200);
        connect(
            area_.verticalScrollBar(), &QScrollBar::valueChanged, this, [] { say("scrolled"); });
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*old*/, QWidget* now) {
            if (now == swatch_)
                say("focused");
        });
        swatch_->installEventFilter(this);
        area_.setFocus();
        area_.show();
        // Only the state of a drag is watched, so that the drag itself runs as it always does.
        connect(&watch_, &QTimer::timeout, this, [this] { watchDrag(); });
        watch_.start(5);
    }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            tellPlace();
        return false;
    }

private:
    void tellPlace()
    {
        const double ratio = swatch_->devicePixelRatioF();
        const QPoint corner = swatch_->mapToGlobal(QPoint());
        const QRect place(
            (QPointF(corner) * ratio).toPoint(), (QSizeF(swatch_->size()) * ratio).toSize());
        if (place == place_)
            return;
        place_ = place;
        say("at " + std::to_string(place.x()) + " " + std::to_string(place.y()) + " "
            + std::to_string(place.width()) + " " + std::to_string(place.height()));
    }

    void watchDrag()
    {
        const bool runs = platform::isColorDragRunning();
        if (runs == ran_)
            return;
        ran_ = runs;
        say(runs ? "dragging" : "dropped");
        if (runs && vanishes_)
            delete swatch_;
    }

    bool vanishes_;
    bool ran_ = false;
    QRect place_;
    QScrollArea area_;
    tintwell::DraggableColorView* swatch_ = nullptr;
    platform::QtPasteboard pasteboard_;
    QTimer watch_;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const Driver driver(QApplication::arguments().contains(QStringLiteral("--vanish")));
    return QApplication::exec();
}
