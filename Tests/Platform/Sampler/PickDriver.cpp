// A little application whose only feature is the screen pick, driven by lines on its standard
// input.
//
//   pick     starts a pick with the sampler of this session; prints "picked R G B" in sRGB or
//   "nothing" portal   starts one with the portal, which has 1 s to answer loupe    starts one with
//   the loupe and no fallback, which ends after 1 s without an event drop     destroys the sampler
//   that is picking alive    prints "alive"
//
// With "--window X Y" it has a window that it hides while the loupe shows; prints "hidden" and
// "shown".

#include "DesktopColorSampler.h"
#include "PortalColorSampler.h"
#include "ThemeSource.h"
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
        }
        const bool dark = arguments.contains(QStringLiteral("--dark"));
        platform::ThemeSource::instance().setAppearance(
            dark ? platform::Appearance::dark : platform::Appearance::light);
        hooks_.describe = [](const platform::Color& color) {
            const auto srgb = platform::inSRGB(color).value_or(platform::Color {});
            return platform::ColorDescription { QColor::fromRgbF(float(srgb.red), float(srgb.green),
                                                    float(srgb.blue))
                                                    .name()
                                                    .toUpper()
                                                    .toStdString(),
                "Violet" };
        };
        hooks_.willShow = [this] { setWindowVisible(false); };
        hooks_.didEnd = [this] { setWindowVisible(true); };
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
    void setWindowVisible(bool visible)
    {
        if (!window_)
            return;
        window_->setVisible(visible);
        if (visible)
            window_->requestActivate();
        std::cout << (visible ? "shown" : "hidden") << std::endl;
    }

    void pick(std::unique_ptr<platform::ColorSampler> sampler)
    {
        sampler_ = std::move(sampler);
        sampler_->show([this](const std::optional<platform::Color>& color) {
            // Like the application, which lets the sampler go before it looks at the answer.
            sampler_.reset();
            const auto srgb = color ? platform::inSRGB(*color) : std::nullopt;
            if (srgb)
                std::printf("picked %.5f %.5f %.5f\n", srgb->red, srgb->green, srgb->blue);
            else
                std::printf("nothing\n");
            std::fflush(stdout);
        });
    }

    std::unique_ptr<Window> window_;
    platform::SamplerHooks hooks_;
    std::unique_ptr<platform::ColorSampler> sampler_;
    std::map<std::string, std::function<void()>> commands_ {
        { "pick", [this] { pick(platform::makeColorSamplerFactory(hooks_)()); } },
        { "portal",
            [this] {
                pick(std::make_unique<platform::PortalColorSampler>(std::chrono::seconds(1)));
            } },
        { "loupe",
            [this] {
                const platform::X11ColorSampler::Limits limits { std::chrono::milliseconds(500),
                    std::chrono::milliseconds(1000) };
                pick(std::make_unique<platform::X11ColorSampler>(hooks_, nullptr, limits));
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
