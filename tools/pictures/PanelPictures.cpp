// The whole panel in the states that a user brings it to.
#include "Button.h"
#include "PaletteGenerator.h"
#include "PopupMenu.h"
#include "ScrollArea.h"
#include "Stage.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>

namespace tintwell {

namespace {

struct PanelPicture {
    const char* name;
    const char* source;
    std::function<void(Stage&)> prepare;
};

NamedColor colorWithID(const std::vector<NamedColor>& colors, const std::string& id)
{
    for (const auto& color : colors)
        if (color.id == id)
            return color;
    return colors.front();
}

void show(Stage& stage, WorkspaceTab tab)
{
    stage.model().setSelectedTab(tab);
    stage.settle();
}

void copyThemePrimary(Stage& stage)
{
    show(stage, WorkspaceTab::themes);
    auto primary = colorWithID(stage.model().generated().darkTheme.colors, "primary");
    primary.id = "dark.primary";
    stage.model().copy(primary);
    stage.settle();
    stage.scrollTo(10'000);
}

void openMenu(Stage& stage)
{
    saveLibrary(stage.model());
    stage.settle();
    for (auto* button : stage.view().findChildren<platform::Button*>())
        if (button->accessibleName() == QStringLiteral("More"))
            button->click();
    auto* menu = stage.view().findChild<platform::PopupMenu*>();
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QCoreApplication::sendEvent(menu, &down);
}

/// Names longer than any row and of both directions of writing, a palette without colours, and one
/// whose colours no screen can show.
QImage hardNames()
{
    const auto palette = [](const std::string& name, std::vector<NamedColor> colors) {
        return SavedPalette { platform::Uuid::random(), name, platform::Timestamp(),
            RGBAColor(0, 0, 0, 1), std::move(colors) };
    };
    const auto colors = PaletteGenerator().generate(*RGBAColor::fromHex("#12A594")).exportColors();
    Stage stage("#12A594",
        { palette(std::string(500, 'W'), colors),
            palette("סגול עמוק, שם אר"
                    "וך שאינו נכנס ב"
                    "שורה אחת של הרש"
                    "ימה",
                colors),
            palette("", {}),
            palette("i", { { "one", "One", RGBAColor(1e30, -5, 0.5, 0.4), std::nullopt } }) });
    show(stage, WorkspaceTab::saved);
    return stage.panel();
}

const std::vector<PanelPicture>& states()
{
    static const std::vector<PanelPicture> all {
        { "panel-studio", "#6E56CF", [](Stage&) {} },
        { "panel-studio-copied", "#6E56CF",
            [](Stage& stage) {
                stage.model().copy(stage.model().generated().harmonySections[0].colors[1]);
            } },
        { "panel-studio-tones", "#6E56CF", [](Stage& stage) { stage.scrollTo(10'000); } },
        { "panel-themes", "#6E56CF", [](Stage& stage) { show(stage, WorkspaceTab::themes); } },
        { "panel-themes-amber", "#F2C14E", copyThemePrimary },
        { "panel-saved", "#6E56CF", [](Stage& stage) { saveLibrary(stage.model()); } },
        { "panel-saved-empty", "#6E56CF", [](Stage& stage) { show(stage, WorkspaceTab::saved); } },
        { "panel-saved-near-black", "#0A0A0D",
            [](Stage& stage) {
                saveLibrary(stage.model());
                stage.model().apply(*RGBAColor::fromHex("#0A0A0D"));
                show(stage, WorkspaceTab::saved);
            } },
        { "menu-open", "#6E56CF", openMenu },
    };
    return all;
}

/// All that the Studio workspace scrolls through.
QImage studioContent()
{
    Stage stage("#6E56CF");
    auto* content = stage.view().findChild<platform::ScrollArea*>()->widget();
    auto sheet = emptySheet(content->size());
    QPainter painter(&sheet);
    content->render(&painter, {}, {}, QWidget::DrawChildren);
    return sheet;
}

} // namespace

std::vector<Picture> panelPictures()
{
    std::vector<Picture> pictures { { "studio-content", studioContent },
        { "panel-saved-names", hardNames } };
    for (const auto& state : states())
        pictures.push_back({ state.name, [&state] {
                                Stage stage(state.source);
                                state.prepare(stage);
                                return stage.panel();
                            } });
    return pictures;
}

} // namespace tintwell
