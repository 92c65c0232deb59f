// The palette records: plain values that carry every palette through the system.
#pragma once

#include "GeneratedPalette.h"
#include "Iso8601.h"
#include "Uuid.h"

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tintwell {

/// One entry of the saved library.
struct SavedPalette {
    platform::Uuid id;
    std::string name;
    platform::Timestamp createdAt;
    RGBAColor source;
    std::vector<NamedColor> colors;

    /// `palette` as it is kept: its source, and all that it exports.
    [[nodiscard]] static SavedPalette of(
        const GeneratedPalette& palette, platform::Uuid id, platform::Timestamp createdAt);

    bool operator==(const SavedPalette&) const = default;
};

/// The three workspaces of the panel, in the order in which the picker shows them.
enum class WorkspaceTab { studio, themes, saved };

inline constexpr std::array allWorkspaceTabs { WorkspaceTab::studio, WorkspaceTab::themes,
    WorkspaceTab::saved };

/// "Studio", "Themes" or "Saved": the shown text.
[[nodiscard]] std::string_view rawValue(WorkspaceTab tab);
[[nodiscard]] std::optional<WorkspaceTab> workspaceTabFromRawValue(std::string_view text);

} // namespace tintwell

template <> struct std::hash<tintwell::SavedPalette> {
    std::size_t operator()(const tintwell::SavedPalette& palette) const noexcept;
};
