#include "PaletteModels.h"

#include "Hashing.h"

namespace tintwell {

std::string_view rawValue(WorkspaceTab tab)
{
    switch (tab) {
    case WorkspaceTab::studio:
        return "Studio";
    case WorkspaceTab::themes:
        return "Themes";
    case WorkspaceTab::saved:
        return "Saved";
    }
    return {};
}

std::optional<WorkspaceTab> workspaceTabFromRawValue(std::string_view text)
{
    for (const auto tab : allWorkspaceTabs) {
        if (rawValue(tab) == text)
            return tab;
    }
    return std::nullopt;
}

SavedPalette SavedPalette::of(
    const GeneratedPalette& palette, platform::Uuid id, platform::Timestamp createdAt)
{
    return { id, palette.sourceName, createdAt, palette.source, palette.exportColors() };
}

} // namespace tintwell

using tintwell::Hasher;

std::size_t std::hash<tintwell::SavedPalette>::operator()(
    const tintwell::SavedPalette& palette) const noexcept
{
    return Hasher()
        .feedList(palette.id.bytes)
        .feed(palette.name)
        .feed(palette.createdAt.time_since_epoch().count())
        .feed(palette.source)
        .feedList(palette.colors)
        .value();
}
