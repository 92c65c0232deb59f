// A little application whose only feature is the screen pick, driven by lines on its standard
// input.
//
// - "pick" starts a pick with the sampler of this session; prints "picked R G B" in sRGB or
//   "nothing".
// - "portal" starts one with the portal, which has 1 s to answer.
// - "loupe" starts one with the loupe, which ends after 1 s without an event.
// - "drop" destroys the sampler that is picking.
// - "alive" prints "alive".
//
// With "--window X Y" it has a window; prints "hidden" and "shown" when it leaves the screen and
// comes back.

#include "DesktopColorSampler.h"
#include "PortalColorSampler.h"
#include "X11ColorSampler.h"

#include <QApplication>
#include <QByteArray>
#include <QPainter>
#include <QRasterWindow>
#include <QSocketNotifier>

#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>

#include <unistd.h>

namespace {

class Window final : public QRasterWindow {
protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(QRect(QPoint(), size()), Qt::magenta);
    }
};

class Driver {
public:
    explicit Driver(const QStringList& arguments)
    {
        const auto at = arguments.indexOf(QStringLiteral("--window"));
        if (at >= 0) {
            window_ = std::make_unique<Window>();
            window_->setTitle(QStringLiteral("Panel"));
            window_->setGeometry(arguments[at + 1].toInt(), arguments[at + 2].toInt(), 200, 150);
            window_->show();
            QObject::connect(window_.get(), &QWindow::visibleChanged, window_.get(),
                [](bool visible) { std::cout << (visible ? "shown" : "hidden") << std::endl; });
        }
    }

    void run(const std::string& command)
    {
        const auto known = commands_.find(command);
        if (known != commands_.end())
            known->second();
        else
            QCoreApplication::exit(1);
    }

private:
    static platform::ColorDescription describe(const platform::Color& color)
    {
        const auto srgb = platform::inSRGB(color).value_or(platform::Color {});
        const auto hex
            = QColor::fromRgbF(float(srgb.red), float(srgb.green), float(srgb.blue)).name();
        return { hex.toUpper().toStdString(), "Violet" };
    }

    void pick(std::unique_ptr<platform::ColorSampler> sampler)
    {
        sampler_ = std::move(sampler);
        sampler_->show([this](const std::optional<platform::Color>& color) {
            QMetaObject::invokeMethod(
                qApp, [this, color] { answer(color); }, Qt::QueuedConnection);
        });
    }

    void answer(const std::optional<platform::Color>& color)
    {
        sampler_.reset();
        const auto srgb = color ? platform::inSRGB(*color) : std::nullopt;
        if (srgb)
            std::printf("picked %.5f %.5f %.5f\n", srgb->red, srgb->green, srgb->blue);
        else
            std::printf("nothing\n");
        std::fflush(stdout);
    }

    std::unique_ptr<Window> window_;
    std::unique_ptr<platform::ColorSampler> sampler_;
    std::map<std::string, std::function<void()>> commands_ {
        { "pick", [this] { pick(platform::makeColorSamplerFactory(describe)()); } },
        { "portal",
            [this] {
                pick(
                    std::make_unique<platform::PortalColorSampler>([] {}, std::chrono::seconds(1)));
            } },
        { "loupe",
            [this] {
                const platform::X11ColorSampler::Limits limits { std::chrono::milliseconds(500),
                    std::chrono::milliseconds(1000) };
                pick(std::make_unique<platform::X11ColorSampler>(
                    *platform::X11Display::current(), describe, [] {}, limits));
            } },
        { "drop", [this] { sampler_.reset(); } },
        { "alive", [] { std::cout << "alive" << std::endl; } },
    };
};

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    Driver driver(QCoreApplication::arguments());
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QByteArray said;
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
        std::array<char, 4096> bytes {};
        const auto count = read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count <= 0)
            return QCoreApplication::quit();
        said.append(bytes.data(), count);
        for (auto end = said.indexOf('\n'); end >= 0; end = said.indexOf('\n')) {
            driver.run(said.left(end).toStdString());
            said.remove(0, end + 1);
        }
    });
    return QGuiApplication::exec();
}
