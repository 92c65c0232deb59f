// A window with one swatch, for tests that press, drag and read it from outside.
//
// Prints "at X Y W H", the swatch on the screen in device pixels, once it is shown; then "clicked",
// "dragging" and "dropped" as they happen, and "forbidden" when the pointer says so. A click also
// copies the colour. Ctrl+V says what there is to be pasted: "pasted", the text and a full stop.

#include "ColorDrag.h"
#include "MacColorIntegration.h"
#include "NativeColorSwatch.h"
#include "QtPasteboard.h"

#include <QApplication>
#include <QShortcut>
#include <QTimer>

#include <iostream>

namespace {

void say(const std::string& line)
{
    std::cout << line << std::endl;
}

class Driver final : public QObject {
public:
    Driver()
    {
        const tintwell::NamedColor named { "source", "Violet", { 1, 0.5, 0.25, 0.5 }, {} };
        const tintwell::NativeColorSwatch record { named.color, named.name, 10, [this, named] {
                                                      tintwell::ColorPasteboard::write(
                                                          named, pasteboard_);
                                                      say("clicked");
                                                  } };
        swatch_ = record.makeNSView().release();
        swatch_->setParent(&window_);
        swatch_->setGeometry(20, 20, 100, 50);
        window_.setWindowTitle(QStringLiteral("Swatch"));
        window_.setGeometry(60, 80, 220, 200);
        swatch_->installEventFilter(this);
        window_.show();
        connect(new QShortcut(QKeySequence::Paste, &window_), &QShortcut::activated, this,
            [this] { paste(); });
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
    void paste() const
    {
        const auto content = pasteboard_.read();
        say("pasted " + (content ? content.value().text + "." : content.error().description));
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
        const auto* cursor = QGuiApplication::overrideCursor();
        if (cursor != nullptr && cursor->shape() == Qt::ForbiddenCursor)
            say("forbidden");
        const bool runs = platform::isColorDragRunning();
        if (runs == ran_)
            return;
        ran_ = runs;
        say(runs ? "dragging" : "dropped");
    }

    bool ran_ = false;
    QRect place_;
    QWidget window_;
    tintwell::DraggableColorView* swatch_ = nullptr;
    platform::QtPasteboard pasteboard_;
    QTimer watch_;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const Driver driver;
    return QApplication::exec();
}
