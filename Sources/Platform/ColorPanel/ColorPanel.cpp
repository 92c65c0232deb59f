#include "ColorPanel.h"

#include "ColorListPane.h"
#include "ColorMixer.h"
#include "Label.h"
#include "OrdinaryWindow.h"
#include "ThemeSource.h"
#include "ToolkitColor.h"

#include <QPainter>

namespace platform {

namespace {

constexpr QSize windowSize { 680, 447 };
constexpr int mixerWidth = 336;
constexpr QRect statusArea { 20, 424, 296, 14 };

} // namespace

class ColorPanelWindow final : public OrdinaryWindow {
public:
    explicit ColorPanelWindow(const ColorPanelServices& services)
        : OrdinaryWindow(QStringLiteral("Colors"), 0, [this] { close(); })
        , body_(this)
        , pasteboard_(services.pasteboard)
        , mixer_([this](const QColor& color) { copy(color); },
              [this](const QColor& color) { use_(color); }, &body_)
        , status_({ .size = 10 }, &Theme::secondary)
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
        status_.setParent(&body_);
        status_.setGeometry(statusArea);
        lists_.setGeometry(
            mixerWidth + 1, 0, windowSize.width() - mixerWidth - 1, windowSize.height());
    }

    void begin(const QColor& source, std::function<void(const QColor&)> use)
    {
        use_ = std::move(use);
        mixer_.setColor(source);
        status_.announce({});
        present();
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        OrdinaryWindow::paintEvent(event);
        QPainter(this).fillRect(
            QRect(body_.x() + mixerWidth, body_.y(), 1, body_.height()), currentTheme().separator);
    }

private:
    void copy(const QColor& color)
    {
        pasteboard_.write(contentOf(color));
        status_.announce(QStringLiteral("Copied ") + hexText(color));
    }

    QWidget body_;
    Pasteboard& pasteboard_;
    std::function<void(const QColor&)> use_;
    ColorMixer mixer_;
    StatusLine status_;
    ColorListPane lists_;
};

ColorPanel::ColorPanel(ColorPanelServices services)
    : services_(std::move(services))
{
}

ColorPanel::~ColorPanel() = default;

void ColorPanel::orderFront(const QColor& source, std::function<void(const QColor&)> use)
{
    if (!window_)
        window_ = std::make_unique<ColorPanelWindow>(services_);
    window_->begin(source, std::move(use));
}

} // namespace platform
