#include "FrameCorners.h"

#include <QPainter>
#include <QWidget>

namespace platform {

class FrameCorners::Corner final : public QWidget {
public:
    Corner(QWidget& window, const PanelFrame& frame)
        : QWidget(&window)
        , frame_(frame)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    void cut(const QRect& place, const QRect& panel)
    {
        panel_ = panel;
        setVisible(!place.isEmpty());
        setGeometry(place);
        raise();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.translate(-pos());
        frame_.paintCorner(painter, geometry(), panel_);
    }

private:
    const PanelFrame& frame_;
    QRect panel_;
};

FrameCorners::FrameCorners(QWidget& window, const PanelFrame& frame)
    : frame_(frame)
{
    for (auto*& corner : corners_)
        corner = new Corner(window, frame);
}

void FrameCorners::layOut(const QRect& panel)
{
    const auto size = frame_.cornerSize();
    const int right = panel.right() + 1 - size.width();
    const int bottom = panel.bottom() + 1 - size.height();
    const std::array places { panel.topLeft(), QPoint(right, panel.top()),
        QPoint(panel.left(), bottom), QPoint(right, bottom) };
    for (std::size_t index = 0; index < places.size(); ++index)
        corners_[index]->cut(QRect(places[index], size), panel);
}

} // namespace platform
