#include "TintwellModel.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace tintwell {

namespace {

using namespace std::chrono_literals;

constexpr auto copyMarkDuration = 950ms;
/// The panel stands still while the library is in use elsewhere.
constexpr auto longestWait = 1s;

constexpr auto firstStatus = "Click to copy · drag to use";
constexpr auto unreadableStatus = "Saved palettes could not be loaded";

std::string withHex(const std::string& sentence, const RGBAColor& color)
{
    return sentence + " · " + color.hex();
}

} // namespace

TintwellModel::TintwellModel(const RGBAColor& initial, PalettePersistence persistence,
    std::shared_ptr<ScreenColorSampling> sampler, ModelServices services)
    : generated_(PaletteGenerator().generate(initial))
    , status_(firstStatus)
    , persistence_(std::move(persistence))
    , sampler_(std::move(sampler))
    , services_(std::move(services))
{
    auto library = persistence_.load();
    if (library)
        savedPalettes_ = std::move(library).value();
    else
        status_ = unreadableStatus;
}

/// Announces the change, then stores the value.
template <typename T, typename Value> void TintwellModel::store(T& property, Value&& value)
{
    observers_.announce();
    property = std::forward<Value>(value);
}

platform::Subscription TintwellModel::observe(std::function<void()> willChange)
{
    return observers_.observe(std::move(willChange));
}

void TintwellModel::setSelectedTab(WorkspaceTab tab)
{
    store(selectedTab_, tab);
}

void TintwellModel::setStatus(std::string status, std::string detail)
{
    store(status_, std::move(status));
    statusDetail_ = std::move(detail);
    ++statusNumber_;
}

void TintwellModel::apply(const RGBAColor& color)
{
    if (color != generated_.source)
        history_.remember(step::Source { generated_.source });
    platform::withAnimation(sourceChangeSpring, [&] {
        store(generated_, generator_.generate(color));
        store(selectedTab_, WorkspaceTab::studio);
    });
}

void TintwellModel::copy(const NamedColor& color)
{
    ColorPasteboard::write(color, services_.pasteboard);
    tellCopied(color, color.color.hex());
}

void TintwellModel::copy(const NamedColor& color, const std::string& text)
{
    services_.pasteboard.write({ toPlatformColor(color.color), text });
    tellCopied(color, text);
}

void TintwellModel::tellCopied(const NamedColor& color, const std::string& text)
{
    store(lastCopiedID_, color.id);
    setStatus("Copied " + color.name + " · " + text);
    services_.scheduler.after(
        copyMarkDuration, [this, alive = std::weak_ptr(alive_), id = color.id] {
            if (!alive.expired() && lastCopiedID_ == id)
                store(lastCopiedID_, std::nullopt);
        });
}

void TintwellModel::copySource()
{
    copy(source());
}

NamedColor TintwellModel::source() const
{
    return { "source", generated_.sourceName, generated_.source, std::nullopt };
}

void TintwellModel::paste()
{
    const auto content = services_.pasteboard.read();
    if (!content)
        setStatus("Nothing pasted: " + content.error().description);
    else if (const auto color = fromPastedContent(content.value()))
        take(*color, "Pasted ");
    else
        setStatus("Nothing pasted: the clipboard holds no color such as #6E56CF");
}

void TintwellModel::drop(const RGBAColor& color)
{
    take(color, "Dropped ");
}

void TintwellModel::use(const RGBAColor& color)
{
    take(color, "Using ");
}

/// `color` comes from another program, in the way that `verb` says.
void TintwellModel::take(const RGBAColor& color, const std::string& verb)
{
    apply(color);
    setStatus(withHex(verb + generated_.sourceName, color));
}

void TintwellModel::sampleFromScreen(const ScreenColorSampling::Completion& ended)
{
    if (isSampling_ || sampler_->isBusy()) {
        if (ended)
            ended(std::nullopt);
        return;
    }
    store(isSampling_, true);
    setStatus("Choose any visible color");
    sampler_->sample([this, alive = std::weak_ptr(alive_), ended](std::optional<RGBAColor> color) {
        if (alive.expired())
            return;
        store(isSampling_, false);
        if (color) {
            apply(*color);
            setStatus(withHex("Sampled " + generated_.sourceName, *color));
        } else {
            setStatus("Sampling cancelled");
        }
        if (ended)
            ended(color);
    });
}

platform::Result<void> TintwellModel::changeLibrary(PalettePersistence::Change change)
{
    change.willChange = [this] { observers_.announce(); };
    change.patience = longestWait;
    platform::Result<void> changed;
    platform::withAnimation(
        sourceChangeSpring, [&] { changed = persistence_.apply(change, savedPalettes_); });
    return changed;
}

void TintwellModel::followLibrary()
{
    auto library = persistence_.takeUpChange();
    if (!library)
        return;
    if (status_ == unreadableStatus)
        setStatus(firstStatus);
    if (*library == savedPalettes_)
        return;
    platform::withAnimation(
        sourceChangeSpring, [&] { store(savedPalettes_, std::move(*library)); });
}

void TintwellModel::saveAndInstallCurrent()
{
    const auto palette = SavedPalette::of(generated_, services_.makeUuid(), services_.now());
    const auto saved = changeLibrary({
        .make = [&](auto& palettes) -> platform::Result<void> {
            palettes.insert(palettes.begin(), palette);
            return {};
        },
        .takeBack =
            [&](auto& palettes) {
                std::erase_if(palettes, [&](const auto& entry) { return entry.id == palette.id; });
            },
    });
    if (!saved) {
        setStatus("Save failed: " + saved.error().description);
        return;
    }
    const auto file = services_.installer.install(installedListName, palette.colors, std::nullopt);
    setStatus(file ? "Saved and installed " + file.value().filename().string()
                   : "Saved, but install failed: " + file.error().description,
        services_.installer.publication().summary());
}

void TintwellModel::use(const SavedPalette& palette)
{
    const auto name = palette.name;
    apply(palette.source);
    setStatus("Loaded " + name);
}

void TintwellModel::install(const SavedPalette& palette)
{
    const auto file = services_.installer.install(installedListName, palette.colors, std::nullopt);
    setStatus(file ? "Installed " + file.value().filename().string()
                   : "Install failed: " + file.error().description,
        services_.installer.publication().summary());
}

void TintwellModel::deletePalette(const SavedPalette& palette)
{
    // The palette may be an element of the very list that changes.
    const auto id = palette.id;
    const auto name = palette.name;
    if (auto removed = remove(id, name); removed && !removed->empty())
        history_.remember(step::PutBack { std::move(*removed) });
}

/// What was removed; nothing when that failed. The status tells either.
std::optional<std::vector<RemovedPalette>> TintwellModel::remove(
    const platform::Uuid& id, const std::string& name)
{
    std::vector<RemovedPalette> removed;
    const auto deleted = changeLibrary({
        .make = [&](auto& palettes) -> platform::Result<void> {
            removed = RemovedPalette::take(palettes, id);
            return {};
        },
        .takeBack = [&](auto& palettes) { RemovedPalette::putBack(palettes, removed); },
    });
    setStatus(deleted ? "Deleted " + name : "Delete failed: " + deleted.error().description);
    return deleted ? std::optional(std::move(removed)) : std::nullopt;
}

void TintwellModel::undo()
{
    walk(history_.past, history_.future, "undo");
}

void TintwellModel::redo()
{
    walk(history_.future, history_.past, "redo");
}

/// Goes the last step of `from`; the way back from there becomes the last step of `to`.
void TintwellModel::walk(std::vector<Step>& from, std::vector<Step>& to, const char* direction)
{
    if (from.empty())
        return setStatus(std::string("Nothing to ") + direction);
    // A step that failed may succeed the next time.
    if (std::visit([&](const auto& step) { return go(step, to); }, from.back()))
        from.pop_back();
}

bool TintwellModel::go(const step::Source& step, std::vector<Step>& to)
{
    to.emplace_back(step::Source { generated_.source });
    platform::withAnimation(
        sourceChangeSpring, [&] { store(generated_, generator_.generate(step.color)); });
    setStatus(withHex("Back to " + generated_.sourceName, step.color));
    return true;
}

bool TintwellModel::go(const step::PutBack& step, std::vector<Step>& to)
{
    const auto& palette = step.removed.front().palette();
    bool wasGone = false;
    const auto restored = changeLibrary({
        .make = [&](auto& palettes) -> platform::Result<void> {
            wasGone = RemovedPalette::putBack(palettes, step.removed);
            return {};
        },
        .takeBack =
            [&](auto& palettes) {
                if (wasGone)
                    (void)RemovedPalette::take(palettes, palette.id);
            },
    });
    setStatus(
        restored ? "Restored " + palette.name : "Restore failed: " + restored.error().description);
    if (restored)
        to.emplace_back(step::Delete { palette.id, palette.name });
    return restored.hasValue();
}

bool TintwellModel::go(const step::Delete& step, std::vector<Step>& to)
{
    auto removed = remove(step.id, step.name);
    if (removed && !removed->empty())
        to.emplace_back(step::PutBack { std::move(*removed) });
    return removed.has_value();
}

} // namespace tintwell
