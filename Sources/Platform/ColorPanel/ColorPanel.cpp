#include "ColorPanel.h"

#include "ColorListPane.h"
#include "ColorMixer.h"
#include "OrdinaryWindow.h"
#include "ThemeSource.h"
#include "ToolkitColor.h"

#include <QPainter>

namespace platform {

namespace {

constexpr QSize windowSize { 680, 447 };
constexpr int mixerWidth = 336;

class ColorPanelWindow final : public OrdinaryWindow {
public:
    explicit ColorPanelWindow(const ColorPanelServices& services)
        : OrdinaryWindow(QStringLiteral("Colors"), 0, [this] { close(); })
        , body_(this)
        , pasteboard_(services.pasteboard)
        , mixer_([this](const QColor& color) { copy(color); }, &body_)
        , lists_(
              services.registry, services.firstList, services.inkOn,
              [this](const QColor& color) {
                  mixer_.setColor(color);
                  copy(color);
              },
              &body_)
    {
        body_.resize(windowSize);
        setBody(body_);
        mixer_.setGeometry(0, 0, mixerWidth, windowSize.height());
        lists_.setGeometry(
            mixerWidth + 1, 0, windowSize.width() - mixerWidth - 1, windowSize.height());
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        OrdinaryWindow::paintEvent(event);
        QPainter(this).fillRect(
            QRect(body_.x() + mixerWidth, body_.y(), 1, body_.height()), currentTheme().separator);
    }

private:
    void copy(const QColor& color) { pasteboard_.write(contentOf(color)); }

    QWidget body_;
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
