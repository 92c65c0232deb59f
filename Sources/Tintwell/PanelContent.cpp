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

QWidget* makeRootView(TintwellModel& /*model*/)
{
    return new Placeholder;
}

} // namespace

PanelContent makePanelContent(DesktopServices& services)
{
    constexpr auto kSeed = "#6E56CF";
    PanelContent content;
    content.model = std::make_unique<TintwellModel>(RGBAColor::fromHex(kSeed).value_or(RGBAColor()),
        PalettePersistence(PalettePersistence::defaultURL()), services.makeSampler(),
        services.forModel());
    content.view = makeRootView(*content.model);
    return content;
}

} // namespace tintwell
