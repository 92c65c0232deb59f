#include "X11ColorSampler.h"

#include "IccColorSpace.h"
#include "LoupeWindow.h"
#include "PendingAnswer.h"
#include "ThemeSource.h"
#include "X11Departure.h"
#include "X11Display.h"
#include "X11Input.h"

#include <QAbstractNativeEventFilter>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

namespace platform {

namespace {

constexpr std::chrono::milliseconds retry { 20 };
constexpr std::chrono::milliseconds look { 10 };
constexpr int farStep = 10;

ColorDescription hexOnly(const Color& color)
{
    const Color srgb = inSRGB(color).value_or(Color {});
    const auto byte = [](double component) {
        return static_cast<unsigned>(std::lround(std::clamp(component, 0.0, 1.0) * 255));
    };
    return { QString::asprintf("#%02X%02X%02X", byte(srgb.red), byte(srgb.green), byte(srgb.blue))
                 .toStdString(),
        {} };
}

/// The monitors in device pixels, in the order in which their profiles are numbered.
std::vector<LoupeMonitor> monitorsWithin(const QRect& root)
{
    std::vector<LoupeMonitor> monitors;
    const auto screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        // The toolkit scales a screen's size, but leaves its origin in device pixels.
        const double scale = screen->devicePixelRatio();
        const QRect native(screen->geometry().topLeft(),
            QSize(static_cast<int>(std::lround(screen->geometry().width() * scale)),
                static_cast<int>(std::lround(screen->geometry().height() * scale))));
        monitors.push_back({ native.intersected(root), scale });
    }
    if (monitors.empty())
        monitors.push_back({ root, 1 });
    return monitors;
}

int distance(const QRect& rect, QPoint point)
{
    const int across = std::max({ rect.left() - point.x(), 0, point.x() - rect.right() });
    const int down = std::max({ rect.top() - point.y(), 0, point.y() - rect.bottom() });
    return across + down;
}

QPoint clamped(QPoint point, const QRect& rect)
{
    return { std::clamp(point.x(), rect.left(), rect.right()),
        std::clamp(point.y(), rect.top(), rect.bottom()) };
}

} // namespace

/// One run of the loupe: take the devices, clear our own windows away, freeze, follow, end.
class X11ColorSampler::Pick final : public QObject, public QAbstractNativeEventFilter {
public:
    Pick(X11ColorSampler& owner, const X11Display& display)
        : owner_(owner)
        , display_(display)
        , grab_(display)
    {
        step_.setSingleShot(true);
        idle_.setSingleShot(true);
        connect(&idle_, &QTimer::timeout, this, [this] { cancelIfIdle(); });
        sinceStart_.start();
        tryGrab();
    }

    ~Pick() override { close(); }

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) override
    {
        if (type == "xcb_generic_event_t")
            handle(*static_cast<const xcb_generic_event_t*>(message));
        // The toolkit has no window there, but keeps its notion of the server's time up to date.
        return false;
    }

private:
    enum class Stage { grabbing, hiding, picking, ended };

    void later(std::chrono::milliseconds delay, void (Pick::*next)())
    {
        step_.disconnect(this);
        connect(&step_, &QTimer::timeout, this, next);
        step_.start(delay);
    }

    void tryGrab()
    {
        if (grab_.acquire()) {
            hideOwnWindows();
        } else if (sinceStart_.elapsed() > owner_.limits_.refusal.count()) {
            stage_ = Stage::ended;
            owner_.unavailable();
        } else {
            later(retry, &Pick::tryGrab);
        }
    }

    void hideOwnWindows()
    {
        stage_ = Stage::hiding;
        QCoreApplication::instance()->installNativeEventFilter(this);
        sinceEvent_.start();
        keys_.emplace(display_);
        departure_.emplace(display_);
        if (owner_.hooks_.willShow)
            owner_.hooks_.willShow();
        departure_->begin();
        awaitDeparture();
    }

    void awaitDeparture()
    {
        if (departure_->isOver())
            showLoupe();
        else
            later(look, &Pick::awaitDeparture);
    }

    void showLoupe()
    {
        window_ = LoupeWindow::freeze(display_);
        if (!window_) {
            close();
            owner_.unavailable();
            return;
        }
        painter_ = std::make_unique<LoupePainter>(currentTheme());
        monitors_ = monitorsWithin(window_->frozen().rect());
        pixel_ = clamped(display_.pointer(), window_->frozen().rect());
        watchScreens();
        grab_.setCursor(window_->blankCursor());
        stage_ = Stage::picking;
        window_->map();
        draw();
        idle_.start(owner_.limits_.idle);
    }

    /// A frozen picture of monitors that have changed shows what is no longer there.
    void watchScreens()
    {
        const auto giveUp = [this] { cancel(); };
        connect(qGuiApp, &QGuiApplication::screenAdded, this, giveUp);
        connect(qGuiApp, &QGuiApplication::screenRemoved, this, giveUp);
        const auto screens = QGuiApplication::screens();
        for (const QScreen* screen : screens)
            connect(screen, &QScreen::geometryChanged, this, giveUp);
    }

    void handle(const xcb_generic_event_t& event)
    {
        switch (event.response_type & ~0x80) {
        case XCB_KEY_PRESS:
            return keyPressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
        case XCB_KEY_RELEASE:
            return keys_->released(reinterpret_cast<const xcb_key_release_event_t&>(event));
        case XCB_BUTTON_PRESS:
            return buttonPressed(reinterpret_cast<const xcb_button_press_event_t&>(event));
        case XCB_BUTTON_RELEASE:
            return buttonReleased(reinterpret_cast<const xcb_button_release_event_t&>(event));
        case XCB_MOTION_NOTIFY:
            return pointerMoved(event);
        case XCB_EXPOSE:
            if (window_
                && reinterpret_cast<const xcb_expose_event_t&>(event).window == window_->window())
                drawSoon();
            return;
        default:
            return;
        }
    }

    void keyPressed(const xcb_key_press_event_t& event)
    {
        sinceEvent_.start();
        const auto key = keys_->pressed(event);
        if (!key)
            return;
        switch (key->action) {
        case LoupeKey::Action::cancel:
            return cancel();
        case LoupeKey::Action::take:
            return take();
        case LoupeKey::Action::move:
            return nudge(
                QPoint(key->dx, key->dy) * ((event.state & XCB_MOD_MASK_SHIFT) != 0 ? farStep : 1));
        }
    }

    void buttonPressed(const xcb_button_press_event_t& event)
    {
        sinceEvent_.start();
        // What was pressed before the loupe could be seen is not meant for it, except to get out.
        if (stage_ == Stage::picking || event.detail == XCB_BUTTON_INDEX_3)
            pressed_ = event.detail;
    }

    void buttonReleased(const xcb_button_release_event_t& event)
    {
        if (event.detail != std::exchange(pressed_, 0))
            return;
        if (event.detail == XCB_BUTTON_INDEX_3)
            return cancel();
        if (event.detail != XCB_BUTTON_INDEX_1)
            return;
        moveTo({ event.root_x, event.root_y });
        take();
    }

    void nudge(QPoint by)
    {
        if (stage_ != Stage::picking)
            return;
        QPoint next = pixel_ + by;
        const bool seen = std::any_of(monitors_.begin(), monitors_.end(),
            [&](const LoupeMonitor& monitor) { return monitor.geometry.contains(next); });
        if (!seen)
            next = clamped(next, monitors_[monitorAt(pixel_)].geometry);
        lastWarp_ = xcb_warp_pointer(display_.connection(), XCB_NONE, display_.root(), 0, 0, 0, 0,
            static_cast<std::int16_t>(next.x()), static_cast<std::int16_t>(next.y()))
                        .sequence;
        moveTo(next);
    }

    /// A movement from before our last warp is history: it must not undo a key's step.
    void pointerMoved(const xcb_generic_event_t& event)
    {
        if (static_cast<std::int32_t>(event.full_sequence - lastWarp_) < 0)
            return;
        const auto& motion = reinterpret_cast<const xcb_motion_notify_event_t&>(event);
        moveTo({ motion.root_x, motion.root_y });
    }

    void moveTo(QPoint pixel)
    {
        sinceEvent_.start();
        if (stage_ != Stage::picking || pixel == pixel_)
            return;
        pixel_ = clamped(pixel, window_->frozen().rect());
        drawSoon();
    }

    /// Once for all the movements that are waiting.
    void drawSoon()
    {
        if (std::exchange(willDraw_, true))
            return;
        QMetaObject::invokeMethod(
            this, [this] { draw(); }, Qt::QueuedConnection);
    }

    void draw()
    {
        willDraw_ = false;
        if (stage_ != Stage::picking)
            return;
        const auto& describe = owner_.hooks_.describe;
        const Color color = colorAt(pixel_);
        window_->show(painter_->paint(window_->frozen(), pixel_, monitors_[monitorAt(pixel_)],
            describe ? describe(color) : hexOnly(color)));
    }

    std::size_t monitorAt(QPoint pixel) const
    {
        const auto nearest = std::min_element(monitors_.begin(), monitors_.end(),
            [&](const LoupeMonitor& one, const LoupeMonitor& other) {
                return distance(one.geometry, pixel) < distance(other.geometry, pixel);
            });
        return static_cast<std::size_t>(nearest - monitors_.begin());
    }

    Color colorAt(QPoint pixel)
    {
        const QRgba64 value = window_->frozen().pixelColor(pixel).rgba64();
        constexpr double full = 65535;
        return { value.red() / full, value.green() / full, value.blue() / full, /*alpha=*/1,
            spaceOf(monitorAt(pixel)) };
    }

    std::shared_ptr<const ColorSpace> spaceOf(std::size_t monitor)
    {
        const auto known = spaces_.find(monitor);
        if (known != spaces_.end())
            return known->second;
        const std::string number = monitor == 0 ? "" : "_" + std::to_string(monitor);
        const auto profile = display_.rootProperty("_ICC_PROFILE" + number);
        return spaces_[monitor] = profile.empty() ? nullptr : IccColorSpace::fromProfile(profile);
    }

    void take()
    {
        if (stage_ != Stage::picking)
            return;
        owner_.answer_->give(colorAt(pixel_));
        close();
    }

    void cancelIfIdle()
    {
        const auto left = owner_.limits_.idle - std::chrono::milliseconds(sinceEvent_.elapsed());
        if (left.count() <= 0)
            cancel();
        else
            idle_.start(left);
    }

    void cancel()
    {
        if (stage_ == Stage::ended)
            return;
        owner_.answer_->give(std::nullopt);
        close();
    }

    void close()
    {
        const auto stage = std::exchange(stage_, Stage::ended);
        step_.stop();
        idle_.stop();
        if (stage == Stage::ended || stage == Stage::grabbing)
            return;
        QCoreApplication::instance()->removeNativeEventFilter(this);
        qGuiApp->disconnect(this);
        window_.reset();
        grab_.release();
        if (owner_.hooks_.didEnd)
            owner_.hooks_.didEnd();
    }

    X11ColorSampler& owner_;
    X11Display display_;
    X11Grab grab_;
    std::optional<X11Keys> keys_;
    std::optional<X11Departure> departure_;
    Stage stage_ = Stage::grabbing;
    QTimer step_;
    QTimer idle_;
    QElapsedTimer sinceStart_;
    QElapsedTimer sinceEvent_;
    std::unique_ptr<LoupeWindow> window_;
    std::unique_ptr<LoupePainter> painter_;
    std::vector<LoupeMonitor> monitors_;
    std::map<std::size_t, std::shared_ptr<const ColorSpace>> spaces_;
    QPoint pixel_;
    unsigned lastWarp_ = 0;
    xcb_button_t pressed_ = 0;
    bool willDraw_ = false;
};

X11ColorSampler::X11ColorSampler(SamplerHooks hooks, ColorSamplerFactory fallback)
    : X11ColorSampler(std::move(hooks), std::move(fallback), Limits {})
{
}

X11ColorSampler::X11ColorSampler(SamplerHooks hooks, ColorSamplerFactory fallback, Limits limits)
    : hooks_(std::move(hooks))
    , fallback_(std::move(fallback))
    , limits_(limits)
{
}

X11ColorSampler::~X11ColorSampler() = default;

void X11ColorSampler::show(SelectionHandler handler)
{
    answer_ = std::make_unique<PendingAnswer>(std::move(handler));
    if (const auto display = X11Display::current())
        pick_ = std::make_unique<Pick>(*this, *display);
    else
        unavailable();
}

void X11ColorSampler::unavailable()
{
    other_ = fallback_ ? fallback_() : nullptr;
    if (other_)
        other_->show(answer_->takeHandler());
    else
        answer_->give(std::nullopt);
}

} // namespace platform
