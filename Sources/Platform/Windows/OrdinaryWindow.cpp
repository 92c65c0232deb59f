#include "OrdinaryWindow.h"

#include "Button.h"
#include "FrameCorners.h"
#include "Metrics.h"
#include "PanelFrame.h"
#include "TextPainting.h"
#include "ThemeSource.h"
#include "WaylandFrame.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <optional>

namespace platform {

namespace {

/// What a title bar and borders of the desktop's take at most.
constexpr QSize desktopFrame { 8, 40 };
/// Wayland does not tell of the bars of a desktop.
constexpr int gnomeBar = 32;
constexpr int usualBar = 44;

constexpr int barHeight = 36;
constexpr int buttonOverhang = 6;
const TextStyle titleStyle { .size = 13, .weight = QFont::DemiBold };

} // namespace

struct OrdinaryWindow::OwnFrame {
    explicit OwnFrame(OrdinaryWindow& window)
        : corners(window, frame)
        , close(windowButton(Symbol::close, QStringLiteral("Close")))
        , minimize(windowButton(Symbol::minimize, QStringLiteral("Minimize")))
    {
        close->setParent(&window);
        minimize->setParent(&window);
        connect(close, &Button::clicked, &window, &QWidget::close);
        connect(minimize, &Button::clicked, &window, &QWidget::showMinimized);
        connect(&ThemeSource::instance(), &ThemeSource::changed, &window, [&window] {
            window.layOutButtons();
            window.update();
        });
    }

    PanelFrame frame { /*composited=*/true };
    FrameCorners corners;
    Button* close;
    Button* minimize;
    std::optional<WaylandFrame> onWayland;
};

OrdinaryWindow::OrdinaryWindow(const QString& title, int headerHeight, std::function<void()> escape)
    : Window(isFramedByDesktop() ? ordinary : Qt::FramelessWindowHint, std::move(escape))
    , headerHeight_(headerHeight)
{
    setWindowTitle(title);
    if (isFramedByDesktop())
        return;
    setAttribute(Qt::WA_TranslucentBackground);
    own_ = std::make_unique<OwnFrame>(*this);
}

OrdinaryWindow::~OrdinaryWindow() = default;

void OrdinaryWindow::setBody(QWidget& body)
{
    if (own_)
        return layOutOwnFrame(body);
    body.move(0, 0);
    setFixedSize(body.size());
}

void OrdinaryWindow::layOutOwnFrame(QWidget& body)
{
    const int bar = headerHeight_ == 0 ? barHeight : 0;
    const auto shadow = own_->frame.shadowRoom({});
    setFixedSize(body.size().grownBy(shadow + QMargins(0, bar, 0, 0)));
    body.move(shadow.left(), shadow.top() + bar);
    own_->corners.layOut(panel());
    layOutButtons();
}

void OrdinaryWindow::layOutButtons()
{
    const auto size = own_->close->sizeHint();
    const int bar
        = headerHeight_ == 0 ? barHeight : 2 * (Metrics::margin - buttonOverhang) + size.height();
    const int inset = (bar - size.height()) / 2;
    QRect place(panel().topRight() + QPoint(1 - inset - size.width(), inset), size);
    for (auto* button : { own_->close, own_->minimize }) {
        button->setGeometry(place);
        button->raise();
        place.translate(-size.width(), 0);
    }
    own_->minimize->setVisible(ThemeSource::instance().minimizes());
}

QSize OrdinaryWindow::roomOn(const QScreen& screen) const
{
    const auto size = screen.availableSize();
    // GNOME, unless it scales by fractions, tells the size of a screen in pixels.
    if (own_)
        return size / screen.devicePixelRatio()
            - QSize(0, gnomeBar + (headerHeight_ == 0 ? barHeight : 0));
    const bool isOnWayland = QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
    return size - desktopFrame - QSize(0, isOnWayland ? usualBar : 0);
}

QRect OrdinaryWindow::panel() const
{
    return own_ ? rect().marginsRemoved(own_->frame.shadowRoom({})) : rect();
}

void OrdinaryWindow::showEvent(QShowEvent* event)
{
    if (own_ && !own_->onWayland)
        own_->onWayland.emplace(*windowHandle(), own_->frame.shadowRoom({}));
    Window::showEvent(event);
}

void OrdinaryWindow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    if (own_)
        own_->frame.paintAround(painter, panel());
    const auto& theme = currentTheme();
    painter.fillRect(panel(), theme.windowBackground);
    if (!own_ || headerHeight_ != 0)
        return;
    const auto font = fontOf(titleStyle);
    const double left
        = (panel().width() - QFontMetricsF(font).horizontalAdvance(windowTitle())) / 2;
    const double top = (barHeight - lineHeightOf(titleStyle)) / 2.0;
    paintText(painter, panel().topLeft() + QPointF(left, top + baselineOf(titleStyle)),
        windowTitle(), font, theme.text);
}

void OrdinaryWindow::mousePressEvent(QMouseEvent* event)
{
    const auto handle = headerHeight_ == 0 ? barHeight : headerHeight_;
    if (own_ && event->button() == Qt::LeftButton && event->position().y() < panel().top() + handle)
        windowHandle()->startSystemMove();
    else
        Window::mousePressEvent(event);
}

} // namespace platform
