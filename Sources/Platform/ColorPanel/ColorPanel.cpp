#include "ColorPanel.h"

#include "ColorListPane.h"
#include "ColorMixer.h"
#include "ThemeSource.h"
#include "ToolkitColor.h"
#include "Window.h"

#include <QPainter>

namespace platform {

namespace {

constexpr QSize windowSize { 680, 447 };
constexpr int mixerWidth = 336;

class ColorPanelWindow final : public Window {
public:
    explicit ColorPanelWindow(const ColorPanelServices& services)
        : Window(ordinary, [this] { close(); })
        , pasteboard_(services.pasteboard)
        , mixer_([this](const QColor& color) { copy(color); }, this)
        , lists_(
              services.registry, services.firstList, services.inkOn,
              [this](const QColor& color) {
                  mixer_.setColor(color);
                  copy(color);
              },
              this)
    {
        setWindowTitle(QStringLiteral("Colors"));
        setFixedSize(windowSize);
        mixer_.setGeometry(0, 0, mixerWidth, windowSize.height());
        lists_.setGeometry(
            mixerWidth + 1, 0, windowSize.width() - mixerWidth - 1, windowSize.height());
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), currentTheme().windowBackground);
        painter.fillRect(QRect(mixerWidth, 0, 1, height()), currentTheme().separator);
    }

private:
    void copy(const QColor& color) { pasteboard_.write(contentOf(color)); }

    Pasteboard& pasteboard_;
    ColorMixer mixer_;
    ColorListPane lists_;
};

} // namespace

ColorPanel::ColorPanel(ColorPanelServices services)
    : services_(std::move(services))
{
}

ColorPanel::~ColorPanel() = default;

void ColorPanel::orderFront()
{
    if (!window_)
        window_ = std::make_unique<ColorPanelWindow>(services_);
    window_->present();
}

} // namespace platform
