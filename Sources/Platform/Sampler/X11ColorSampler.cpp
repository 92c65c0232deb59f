#include "X11ColorSampler.h"

#include "Loupe.h"
#include "LoupeGestures.h"
#include "PortalColorSampler.h"
#include "WindowsAside.h"
#include "X11Grab.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <utility>

namespace platform {

namespace {

constexpr std::chrono::milliseconds retry { 20 };
constexpr std::chrono::milliseconds look { 10 };

} // namespace

/// One run of the loupe, step after step: takes the devices, puts our own windows aside, opens the
/// loupe, follows the user, answers.
class X11ColorSampler::Pick final : public QObject, public QAbstractNativeEventFilter {
public:
    explicit Pick(X11ColorSampler& owner)
        : owner_(owner)
        , grab_(owner.display_)
    {
        next_.setSingleShot(true);
        idle_.setSingleShot(true);
        connect(&idle_, &QTimer::timeout, this, [this] { answer(std::nullopt); });
        sinceStart_.start();
    }

    ~Pick() override { close(); }

    void takeDevices()
    {
        if (grab_.acquire())
            return clearScreen();
        if (sinceStart_.elapsed() > owner_.limits_.refusal.count())
            return leaveItToThePortal();
        later(retry, &Pick::takeDevices);
    }

private:
    void later(std::chrono::milliseconds delay, void (Pick::*step)())
    {
        next_.disconnect(this);
        connect(&next_, &QTimer::timeout, this, step);
        next_.start(delay);
    }

    void clearScreen()
    {
        gestures_.emplace(owner_.display_);
        QCoreApplication::instance()->installNativeEventFilter(this);
        aside_.emplace(owner_.display_);
        openLoupe();
    }

    void openLoupe()
    {
        if (!aside_->areGone())
            return later(look, &Pick::openLoupe);
        loupe_ = Loupe::open(owner_.display_, owner_.describe_);
        if (!loupe_)
            return leaveItToThePortal();
        const auto giveUp = [this] {
            if (loupe_)
                answer(std::nullopt);
        };
        connect(loupe_.get(), &Loupe::outdated, this, giveUp, Qt::QueuedConnection);
        grab_.setCursor(loupe_->window().blankCursor());
        idle_.start(owner_.limits_.idle);
    }

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) override
    {
        if (type == "xcb_generic_event_t")
            follow(*static_cast<const xcb_generic_event_t*>(message));
        // The toolkit has no window there, but keeps its notion of the server's time up to date.
        return false;
    }

    void follow(const xcb_generic_event_t& event)
    {
        if (loupe_ && loupe_->window().isExposedBy(event))
            loupe_->drawSoon();
        if (!LoupeGestures::isInput(event))
            return;
        if (idle_.isActive())
            idle_.start();
        const auto action = gestures_->action(event, loupe_ != nullptr);
        if (action && (loupe_ || action->kind == LoupeAction::Kind::cancel))
            perform(*action);
    }

    void perform(const LoupeAction& action)
    {
        switch (action.kind) {
        case LoupeAction::Kind::cancel:
            return answer(std::nullopt);
        case LoupeAction::Kind::take:
            return answer(loupe_->color());
        case LoupeAction::Kind::takeAt:
            loupe_->moveTo(action.to);
            return answer(loupe_->color());
        case LoupeAction::Kind::stepBy:
            loupe_->step(action.to);
            return gestures_->warpPointer(loupe_->pixel());
        case LoupeAction::Kind::moveTo:
            return loupe_->moveTo(action.to);
        }
    }

    void answer(const std::optional<Color>& color)
    {
        close();
        owner_.handler_(color);
    }

    void leaveItToThePortal()
    {
        close();
        owner_.portal_ = std::make_unique<PortalColorSampler>(owner_.impossible_);
        owner_.portal_->show(owner_.handler_);
    }

    /// The loupe goes first, then the devices are free for the windows that come back.
    void close()
    {
        next_.stop();
        idle_.stop();
        QCoreApplication::instance()->removeNativeEventFilter(this);
        loupe_.reset();
        grab_.release();
        aside_.reset();
    }

    X11ColorSampler& owner_;
    X11Grab grab_;
    std::optional<LoupeGestures> gestures_;
    std::optional<WindowsAside> aside_;
    std::unique_ptr<Loupe> loupe_;
    QTimer next_;
    QTimer idle_;
    QElapsedTimer sinceStart_;
};

X11ColorSampler::X11ColorSampler(const X11Display& display, ColorDescriber describe,
    std::function<void()> impossible, Limits limits)
    : display_(display)
    , describe_(std::move(describe))
    , impossible_(std::move(impossible))
    , limits_(limits)
{
}

X11ColorSampler::~X11ColorSampler() = default;

void X11ColorSampler::show(SelectionHandler handler)
{
    handler_ = std::move(handler);
    pick_ = std::make_unique<Pick>(*this);
    pick_->takeDevices();
}

} // namespace platform
