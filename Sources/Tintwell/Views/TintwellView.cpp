#include "TintwellView.h"

#include "ExportDialog.h"
#include "Metrics.h"
#include "PopupMenu.h"
#include "QtColor.h"
#include "Separator.h"
#include "Stack.h"
#include "ThemeSource.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QShortcut>

#include <algorithm>
#include <functional>
#include <utility>

namespace tintwell {

namespace {

constexpr QSize panelSize { 448, 680 };
/// On a short screen the workspace gets shorter.
constexpr int leastHeight = 400;
constexpr int pickerPaddingY = 10;

platform::Tint toTint(const TintState& state)
{
    return { toQColor(state.tint), toQColor(state.ink), toQColor(state.text),
        toQColor(state.focusRing), toQColor(state.overlay), state.hasOutline };
}

/// Labels are those of the fill that is there: blended ones would fade into it on their way.
platform::Tint between(const platform::Tint& from, const platform::Tint& to, double progress)
{
    const auto& theme = platform::currentTheme();
    auto tint = platform::blended(from, to, progress);
    const auto labels = tintState(
        fromQColor(tint.fill), fromQColor(theme.windowBackground), fromQColor(theme.text));
    tint.ink = toQColor(labels.ink);
    tint.overlay = toQColor(labels.overlay);
    return tint;
}

QStringList tabTitles()
{
    QStringList titles;
    for (const auto tab : allWorkspaceTabs)
        titles.append(QLatin1String(rawValue(tab).data(), static_cast<int>(rawValue(tab).size())));
    return titles;
}

} // namespace

TintwellView::TintwellView(TintwellModel& model, ViewActions actions, QWidget* parent)
    : QWidget(parent)
    , model_(model)
    , actions_(std::move(actions))
    , header_(new CaptureHeader(model))
    , workspacePicker_(new platform::SegmentedPicker(QStringLiteral("Workspace"), tabTitles()))
    , workspace_(new platform::PageStack)
    , footer_(new UtilityFooter(model, actions_.openColorPanel, actions_.quit))
    , bridge_([&model](auto willChange) { return model.observe(std::move(willChange)); },
          [this](const auto& spring) { show(spring); })
{
    setFixedSize(panelSize);
    setMinimumHeight(leastHeight);
    setFocusPolicy(Qt::ClickFocus);
    setAccessibleName(QStringLiteral("Tintwell"));
    workspace_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setLayout(platform::vstack(0,
        { header_, new platform::Separator,
            platform::hosted(
                platform::padded(platform::hstack(0, { platform::flexible(workspacePicker_) }),
                    platform::Metrics::margin, pickerPaddingY)),
            new platform::Separator, platform::flexible(workspace_), new platform::Separator,
            footer_ },
        {}));
    connect(workspacePicker_, &platform::SegmentedPicker::picked, this, [this](int index) {
        model_.setSelectedTab(allWorkspaceTabs.at(static_cast<std::size_t>(index)));
    });
    connect(&platform::ThemeSource::instance(), &platform::ThemeSource::changed, this,
        [this] { show(std::nullopt); });
    addShortcuts();
    bridge_.showNow();
}

void TintwellView::addShortcuts()
{
    const auto add = [this](const QKeySequence& keys, std::function<void()> action) {
        auto* shortcut = new QShortcut(keys, this);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, std::move(action));
    };
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_C, [this] { model_.beginSampling(); });
    add(QKeySequence::Copy, [this] { copyFocused(); });
    add(QKeySequence::Paste, [this] { model_.paste(); });
    add(Qt::CTRL | Qt::Key_S, [this] { model_.saveAndInstallCurrent(); });
    add(Qt::CTRL | Qt::Key_Q, actions_.quit);
    // The toolkit itself knows the Menu key only.
    add(Qt::SHIFT | Qt::Key_F10, [this] { openMenuOfFocus(); });
    add(Qt::CTRL | Qt::Key_Z, [this] { model_.undo(); });
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_Z, [this] { model_.redo(); });
    for (std::size_t i = 0; i < allWorkspaceTabs.size(); ++i)
        add(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + i),
            [this, i] { model_.setSelectedTab(allWorkspaceTabs.at(i)); });
}

void TintwellView::show(const std::optional<platform::Spring>& spring)
{
    header_->show(headerState(model_), spring);
    showWorkspace(spring);
    workspacePicker_->setCurrent(static_cast<int>(model_.selectedTab()), spring);
    footer_->show(model_.status(), model_.statusNumber());
    showTint(spring);
}

void TintwellView::showTint(const std::optional<platform::Spring>& spring)
{
    const auto& theme = platform::currentTheme();
    const auto state = tintState(
        model_.generated().source, fromQColor(theme.windowBackground), fromQColor(theme.text));
    if (state == shownTint_)
        return;
    shownTint_ = state;
    const auto target = toTint(state);
    tintMotion_.follow(spring, [this, from = tint_, target](double progress) {
        tint_ = progress == 1 ? target : between(from, target, progress);
        platform::applyTint(*this, tint_);
    });
}

void TintwellView::showWorkspace(const std::optional<platform::Spring>& spring)
{
    auto* page = workspace(model_.selectedTab());
    // Only a page that is in sight can be seen to change.
    const auto change = page == workspace_->currentPage() ? spring : std::nullopt;
    switch (model_.selectedTab()) {
    case WorkspaceTab::studio:
        if (std::exchange(shownSource_, model_.generated().source) != shownSource_)
            studio_->scrollToTop();
        studio_->show(studioState(model_), change);
        break;
    case WorkspaceTab::themes:
        themes_->show(themesState(model_), change);
        break;
    case WorkspaceTab::saved:
        saved_->show(savedState(model_, actions_.dateText), change);
        break;
    }
    // What was built just now has not seen the tint yet.
    if (page != workspace_->currentPage())
        platform::applyTint(*page, tint_);
    workspace_->showPage(page, spring);
}

QWidget* TintwellView::workspace(WorkspaceTab tab)
{
    const auto copy = [this](const NamedColor& color) { model_.copy(color); };
    const auto built = [this](auto*& page, platform::PageEdge edge, const auto& make) {
        if (page == nullptr) {
            page = make();
            workspace_->addPage(page, edge);
        }
        return page;
    };
    switch (tab) {
    case WorkspaceTab::studio:
        return built(
            studio_, platform::PageEdge::leading, [&] { return new StudioWorkspace(copy); });
    case WorkspaceTab::themes:
        return built(themes_, platform::PageEdge::none, [&] { return new ThemeWorkspace(copy); });
    case WorkspaceTab::saved:
        return built(saved_, platform::PageEdge::trailing,
            [this] { return new SavedWorkspace(savedActions()); });
    }
    return nullptr;
}

const SavedPalette* TintwellView::savedPalette(const platform::Uuid& id) const
{
    const auto& all = model_.savedPalettes();
    const auto found = std::find_if(
        all.begin(), all.end(), [&id](const auto& palette) { return palette.id == id; });
    return found != all.end() ? &*found : nullptr;
}

SavedActions TintwellView::savedActions()
{
    const auto toPalette = [this](void (TintwellModel::*act)(const SavedPalette&)) {
        return [this, act](const platform::Uuid& id) {
            if (const auto* palette = savedPalette(id))
                std::invoke(act, model_, *palette);
        };
    };
    return { toPalette(&TintwellModel::use), toPalette(&TintwellModel::install),
        toPalette(&TintwellModel::deletePalette) };
}

/// What the part of the panel that `part` lies in stands for.
std::optional<TintwellView::CopyOffer> TintwellView::offerOf(const QWidget* part) const
{
    for (; part != nullptr && part != this; part = part->parentWidget()) {
        if (part == header_)
            return CopyOffer { model_.source(), "source", /*isSource=*/true };
        if (const auto* cell = qobject_cast<const SwatchCell*>(part))
            return CopyOffer { cell->shown().namedColor, cell->shown().namedColor.id };
        if (const auto* row = qobject_cast<const SavedPaletteRow*>(part))
            if (const auto* palette = savedPalette(row->shown().id))
                return CopyOffer { { "saved", palette->name, palette->source, {} }, "source",
                    /*isSource=*/true };
    }
    return std::nullopt;
}

void TintwellView::copyFocused()
{
    const auto* focused = window()->focusWidget();
    const auto* cell = focused ? qobject_cast<SwatchCell*>(focused->parentWidget()) : nullptr;
    model_.copy(cell != nullptr ? cell->shown().namedColor : model_.source());
}

void TintwellView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        openMenuOfFocus();
    else if (const auto offer = offerOf(childAt(event->pos())))
        openCopyMenu(*offer, *this, { event->pos(), QSize() }, /*byKeyboard=*/false);
}

void TintwellView::openMenuOfFocus()
{
    auto* owner = window()->focusWidget();
    auto offer = offerOf(owner);
    if (!offer) {
        owner = header_->swatch();
        offer = offerOf(owner);
    }
    openCopyMenu(*offer, *owner, owner->rect(), /*byKeyboard=*/true);
}

void TintwellView::openCopyMenu(
    const CopyOffer& offer, QWidget& owner, const QRect& area, bool byKeyboard)
{
    const auto name = QStringLiteral("Copy as");
    std::vector<platform::MenuItem> items { { name, {}, {} } };
    for (const auto& text : copyTexts(offer.color.color, offer.property))
        items.push_back({ QString::fromStdString(text), platform::Symbol::copy,
            [this, color = offer.color, text] { model_.copy(color, text); } });
    if (offer.isSource) {
        items.emplace_back();
        items.push_back({ QStringLiteral("Export…"), platform::Symbol::tray,
            [this, source = offer.color.color] { openExportDialog(*this, source); } });
    }
    platform::PopupMenu::openAt(owner, area, name, std::move(items), tint_, byKeyboard);
}

/// The workspace scrolls wherever the focus is.
void TintwellView::keyPressEvent(QKeyEvent* event)
{
    auto* page = workspace_->currentPage();
    auto* area = qobject_cast<platform::ScrollArea*>(page);
    if (area == nullptr)
        area = page->findChild<platform::ScrollArea*>();
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(area, event);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void TintwellView::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), platform::currentTheme().windowBackground);
}

} // namespace tintwell
