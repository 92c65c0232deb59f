// The "Colors" window: a colour mixed by wheel, sliders or numbers, beside the user's colour lists.
#include "QtColorPanel.h"

#include "ColorListPane.h"
#include "ColorMixer.h"
#include "ReadingOrder.h"
#include "ThemeSource.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWidget>

namespace platform {

namespace {

constexpr QSize windowSize { 680, 447 };
constexpr int mixerWidth = 336;

class ColorPanelWindow final : public QWidget {
public:
    explicit ColorPanelWindow(const ColorPanelServices& services)
        : QWidget(nullptr,
            Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint
                | Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint)
        , pasteboard_(services.pasteboard)
        , mixer_([this](const QColor& color) { copy(color); }, this)
        , lists_(services.registry,
              { [this](const QColor& color) {
                   mixer_.setColor(color);
                   copy(color);
               },
                  services.inkOn, services.firstList },
              this)
    {
        setWindowTitle(QStringLiteral("Colors"));
        setFixedSize(windowSize);
        mixer_.setGeometry(0, 0, mixerWidth, windowSize.height());
        // Nothing is marked before the keyboard is used.
        setFocusPolicy(Qt::ClickFocus);
        setFocus();
        lists_.setGeometry(
            mixerWidth + 1, 0, windowSize.width() - mixerWidth - 1, windowSize.height());
    }

protected:
    bool focusNextPrevChild(bool next) override { return moveFocusInReadingOrder(*this, next); }
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Escape)
            close();
        else
            QWidget::keyPressEvent(event);
    }
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), currentTheme().windowBackground);
        painter.fillRect(QRect(mixerWidth, 0, 1, height()), currentTheme().separator);
    }

private:
    void copy(const QColor& color)
    {
        const Color content { color.redF(), color.greenF(), color.blueF(), color.alphaF() };
        pasteboard_.write({ content, hexText(color).toStdString() });
    }

    Pasteboard& pasteboard_;
    ColorMixer mixer_;
    ColorListPane lists_;
};

class QtColorPanel final : public ColorPanel {
public:
    explicit QtColorPanel(ColorPanelServices services)
        : services_(std::move(services))
    {
    }

    void orderFront() override
    {
        if (!window_)
            window_ = std::make_unique<ColorPanelWindow>(services_);
        if (window_->isMinimized())
            window_->showNormal();
        window_->show();
        window_->raise();
        window_->activateWindow();
    }

private:
    ColorPanelServices services_;
    std::unique_ptr<ColorPanelWindow> window_;
};

} // namespace

std::unique_ptr<ColorPanel> makeColorPanel(ColorPanelServices services)
{
    return std::make_unique<QtColorPanel>(std::move(services));
}

} // namespace platform
