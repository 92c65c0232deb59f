// What a panel shows: a model and the root view that stands on it.
#include "PanelContent.h"

#include <QPainter>
#include <QWidget>

namespace tintwell {

namespace {

class Placeholder final : public QWidget {
public:
    Placeholder()
        : QWidget(nullptr)
    {
        setFixedSize(448, 680);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), QColor(0xF7, 0xF7, 0xF8));
        painter.fillRect(QRect(18, 29, 104, 104), QColor(0x6E, 0x56, 0xCF));
    }
};

} // namespace

PanelContent makePanelContent(DesktopServices& /*services*/)
{
    return { new Placeholder };
}

} // namespace tintwell
