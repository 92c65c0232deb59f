// Sheets of every control in every state, headers of sources light and dark, and all symbols.
#include "BrandMark.h"
#include "Button.h"
#include "Stage.h"
#include "ThemeSource.h"

#include <QCoreApplication>
#include <QEnterEvent>
#include <QPainter>

namespace tintwell {

namespace {

enum class Look { normal, hover, pressed, focus, disabled };

constexpr int ringRoom = 6;
constexpr int firstColumn = 76;
constexpr int columnWidth = 100;

const platform::TextStyle captionStyle { .size = 11 };

void paintCaption(QPainter& painter, QPointF topLeft, const QString& text)
{
    painter.setFont(platform::fontOf(captionStyle));
    painter.setPen(platform::currentTheme().secondary);
    painter.drawText(topLeft + QPointF(0, platform::baselineOf(captionStyle)), text);
}

void hover(QWidget& widget)
{
    const QPointF middle = QRectF(widget.rect()).center();
    widget.setAttribute(Qt::WA_UnderMouse);
    QEnterEvent entered(middle, middle, widget.mapToGlobal(middle));
    QCoreApplication::sendEvent(&widget, &entered);
}

void bring(platform::Button& button, Look look)
{
    if (look == Look::hover || look == Look::pressed)
        hover(button);
    button.setDown(look == Look::pressed);
    if (look == Look::focus)
        button.setFocus(Qt::TabFocusReason);
    button.setEnabled(look != Look::disabled);
}

/// Shows the widget in a window of its own, with room for a focus ring, and paints that so that the
/// widget's corner is at `topLeft`. `bring` puts the widget into its state.
void paintWidget(
    QPainter& painter, QPoint topLeft, QWidget* widget, QSize size,
    const std::function<void()>& bring = [] {})
{
    QWidget window;
    widget->setParent(&window);
    widget->setGeometry(QRect({ ringRoom, ringRoom }, size));
    window.setFocusPolicy(Qt::ClickFocus);
    window.resize(size + QSize(2 * ringRoom, 2 * ringRoom));
    window.show();
    window.activateWindow();
    window.setFocus();
    QCoreApplication::processEvents();
    bring();
    settleWindows();
    painter.drawPixmap(topLeft - QPoint(ringRoom, ringRoom), window.grab());
}

struct ButtonRow {
    const char* caption;
    std::function<platform::Button*()> make;
    std::vector<Look> looks;
};

const std::vector<ButtonRow>& buttonRows()
{
    using namespace platform;
    using enum Look;
    static const std::vector<ButtonRow> rows {
        { "Prominent", [] { return prominentButton(QStringLiteral("Sample"), Symbol::eyedropper); },
            { normal, hover, pressed, focus, disabled } },
        { "Bordered", [] { return borderedIcon(Symbol::copy, QStringLiteral("Copy")); },
            { normal, hover, pressed, focus, disabled } },
        { "Borderless", [] { return borderlessButton(QStringLiteral("Install")); },
            { normal, hover, pressed, focus } },
        { "Destructive",
            [] { return destructiveIcon(Symbol::trash, QStringLiteral("Delete palette")); },
            { normal, hover, pressed, focus } },
        { "Menu button", [] { return menuButton(QStringLiteral("More")); },
            { normal, hover, pressed, focus } },
    };
    return rows;
}

void paintButtons(QPainter& painter, int& top, const platform::Tint& tint)
{
    const auto captions = { "Normal", "Hover", "Pressed", "Focus", "Disabled" };
    int left = firstColumn;
    for (const auto* caption : captions) {
        paintCaption(painter, QPointF(left, top), QLatin1String(caption));
        left += columnWidth;
    }
    top += 30;
    for (const auto& row : buttonRows()) {
        paintCaption(painter, QPointF(0, top + 7), QLatin1String(row.caption));
        left = firstColumn;
        for (const auto look : row.looks) {
            auto* button = row.make();
            button->setTint(tint);
            paintWidget(
                painter, { left, top }, button, button->sizeHint(), [&] { bring(*button, look); });
            left += columnWidth;
        }
        top += 44;
    }
}

void paintPickers(QPainter& painter, int& top, const platform::Tint& tint)
{
    constexpr QSize size(225, 30);
    paintCaption(painter, QPointF(0, top + 8), QStringLiteral("Segments"));
    for (const auto look : { Look::hover, Look::focus }) {
        auto* picker = new platform::SegmentedPicker(QStringLiteral("Workspace"),
            { QStringLiteral("Studio"), QStringLiteral("Themes"), QStringLiteral("Saved") });
        picker->setTint(tint);
        const auto bringPicker = [&] {
            auto segments = picker->findChildren<QAbstractButton*>();
            if (look == Look::hover)
                return hover(*segments[1]);
            picker->setCurrent(1);
            segments[1]->setFocus(Qt::TabFocusReason);
        };
        const int left = look == Look::hover ? firstColumn : firstColumn + size.width() + 14;
        paintWidget(painter, { left, top }, picker, size, bringPicker);
    }
    top += 48;
}

void paintTiles(QPainter& painter, int& top, Stage& stage)
{
    const auto cells = studioState(stage.model()).at(0).cells;
    struct Tile {
        const char* name;
        const char* hex;
        bool isCopied;
        bool hasFocus;
    };
    constexpr std::array tiles { Tile { "Base", "#6E56CF", false, false },
        Tile { "Copied", "#B14E00", true, false }, Tile { "Focus", "#008363", false, true },
        Tile { "Pale, copied", "#EAE8FF", true, false } };
    paintCaption(painter, QPointF(0, top + 18), QStringLiteral("Tiles"));
    int left = firstColumn;
    for (const auto& tile : tiles) {
        auto state = cells.at(0);
        state.namedColor = { tile.name, tile.name, *RGBAColor::fromHex(tile.hex), std::nullopt };
        state.hex = tile.hex;
        state.isCopied = tile.isCopied;
        state.mark = readableInkOn(state.namedColor.color);
        auto* cell = new SwatchCell(
            state, [](const NamedColor&) {}, nullptr);
        cell->setTint(stage.view().tint());
        paintWidget(painter, { left, top }, cell, { 106, SwatchCell::heightOf(false) }, [&] {
            if (tile.hasFocus)
                cell->tile()->setFocus(Qt::TabFocusReason);
        });
        left += 120;
    }
    top += SwatchCell::heightOf(false) + 20;
}

struct Header {
    const char* source;
    std::function<void(Stage&)> prepare;
};

/// Header and picker of the panel, down to the line below them.
void paintHeader(QPainter& painter, int& top, const Header& header)
{
    constexpr QSize size(448, 213);
    Stage stage(header.source);
    stage.model().copySource();
    stage.settle();
    header.prepare(stage);
    const auto panel = stage.panel();
    painter.drawImage(
        QPointF(firstColumn, top), panel, QRectF(QPointF(), QSizeF(size) * pictureScale));
    top += size.height() + 12;
}

QImage controls()
{
    auto sheet = emptySheet({ 620, 1330 });
    QPainter painter(&sheet);
    painter.translate(24, 24);
    Stage stage("#6E56CF");
    int top = 0;
    paintButtons(painter, top, stage.view().tint());
    paintPickers(painter, top, stage.view().tint());
    paintTiles(painter, top, stage);
    const std::vector<Header> headers {
        { "#6E56CF", [](Stage& shown) { shown.model().beginSampling(); } },
        { "#F2C14E", [](Stage& shown) { shown.model().setSelectedTab(WorkspaceTab::themes); } },
        { "#0A0A0D", [](Stage& shown) { shown.model().setSelectedTab(WorkspaceTab::saved); } },
        { "#F6F5F2", [](Stage& shown) { shown.focusSwatch(); } },
    };
    for (const auto& header : headers)
        paintHeader(painter, top, header);
    return sheet;
}

QImage symbols()
{
    using platform::Symbol;
    const std::vector<std::pair<Symbol, const char*>> all { { Symbol::eyedropper, "eyedropper" },
        { Symbol::eyedropperHalf, "eyedropper-half" }, { Symbol::copy, "copy" },
        { Symbol::checkmark, "checkmark" }, { Symbol::seal, "seal" },
        { Symbol::palette, "palette" }, { Symbol::paletteFill, "palette-fill" },
        { Symbol::tray, "tray" }, { Symbol::power, "power" }, { Symbol::ellipsis, "ellipsis" },
        { Symbol::stackSlash, "stack-slash" }, { Symbol::trash, "trash" } };
    constexpr int columns = 6;
    auto sheet = emptySheet({ 960, 632 });
    QPainter painter(&sheet);
    painter.translate(36, 36);
    int index = 0;
    for (const auto& [symbol, name] : all) {
        const double left = index % columns * 150;
        const double top = index / columns * 190;
        double right = left;
        platform::paintSymbol(
            painter, symbol, { left, top, 96, 96 }, platform::currentTheme().text);
        for (const double side : { 32.0, 22.0, 16.0 }) {
            platform::paintSymbol(painter, symbol, { right, top + 124 - side / 2, side, side },
                platform::currentTheme().text);
            right += side + 14;
        }
        paintCaption(painter, { left, top + 148 }, QLatin1String(name));
        ++index;
    }
    painter.translate(0, 528);
    paintWidget(painter, {}, new BrandMark(QImage()), { 32, 32 });
    return sheet;
}

} // namespace

std::vector<Picture> sheetPictures()
{
    return { { "controls", controls }, { "symbols", symbols } };
}

} // namespace tintwell
