#include "Loupe.h"

#include "ThemeSource.h"

#include <QGuiApplication>
#include <QScreen>

#include <chrono>
#include <utility>

namespace platform {

namespace {

constexpr std::chrono::milliseconds betweenSpeech { 500 };

} // namespace

std::unique_ptr<Loupe> Loupe::open(const X11Display& display, ColorDescriber describe)
{
    auto window = LoupeWindow::freeze(display);
    if (!window)
        return nullptr;
    return std::unique_ptr<Loupe>(new Loupe(display, std::move(window), std::move(describe)));
}

Loupe::Loupe(
    const X11Display& display, std::unique_ptr<LoupeWindow> window, ColorDescriber describe)
    : window_(std::move(window))
    , desktop_(display, window_->frozen())
    , painter_(currentTheme())
    , describe_(std::move(describe))
    , pixel_(desktop_.nearest(display.pointer()))
    , spoken_({ .size = 10 }, &Theme::text)
{
    speech_.setSingleShot(true);
    speech_.setInterval(betweenSpeech);
    connect(&speech_, &QTimer::timeout, this, &Loupe::announce);
    watchScreens();
    window_->map();
    draw();
}

void Loupe::watchScreens() const
{
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &Loupe::outdated);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &Loupe::outdated);
    const auto screens = QGuiApplication::screens();
    for (const QScreen* screen : screens)
        connect(screen, &QScreen::geometryChanged, this, &Loupe::outdated);
}

void Loupe::moveTo(QPoint pixel)
{
    if (pixel == pixel_)
        return;
    pixel_ = desktop_.nearest(pixel);
    drawSoon();
}

void Loupe::step(QPoint by)
{
    moveTo(desktop_.stepped(pixel_, by));
    // The steps of a held key are told together: nobody could follow each.
    if (!speech_.isActive())
        speech_.start();
}

void Loupe::announce()
{
    const auto [hex, name] = describe_(color());
    spoken_.announce(QString::fromStdString(name + " · " + hex));
}

void Loupe::drawSoon()
{
    if (!std::exchange(willDraw_, true))
        QMetaObject::invokeMethod(this, &Loupe::draw, Qt::QueuedConnection);
}

void Loupe::draw()
{
    willDraw_ = false;
    window_->show(
        painter_.paint(desktop_.picture(), pixel_, desktop_.monitorAt(pixel_), describe_(color())));
}

} // namespace platform
