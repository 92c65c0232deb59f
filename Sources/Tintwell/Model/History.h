// What the user can take back: deletions and changes of the source.
#pragma once

#include "PaletteModels.h"

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tintwell {

/// A palette that was taken out of a library, and where it stood.
class RemovedPalette {
public:
    /// Takes every palette of that id out, the last one first.
    [[nodiscard]] static std::vector<RemovedPalette> take(
        std::vector<SavedPalette>& library, const platform::Uuid& id);
    /// Undoes that, whatever happened to the library meanwhile: a palette stands again before the
    /// one that followed it, or, where that is gone, as far from the oldest as before. One that
    /// somebody else brought back stays where it is, and the answer is false.
    static bool putBack(
        std::vector<SavedPalette>& library, const std::vector<RemovedPalette>& removed);

    [[nodiscard]] const SavedPalette& palette() const { return palette_; }

private:
    RemovedPalette(SavedPalette palette, std::optional<platform::Uuid> next, std::size_t older);

    SavedPalette palette_;
    std::optional<platform::Uuid> next_;
    std::size_t older_ = 0;
};

/// What leads from one state of the model to the one before it, or behind it.
namespace step {
struct Source {
    RGBAColor color;
};
struct PutBack {
    std::vector<RemovedPalette> removed; ///< Never empty.
};
struct Delete {
    platform::Uuid id;
    std::string name;
};
} // namespace step

using Step = std::variant<step::Source, step::PutBack, step::Delete>;

/// The steps backwards and forwards, the next one last.
struct History {
    static constexpr std::size_t mostSteps = 20;

    std::vector<Step> past;
    std::vector<Step> future;

    /// What the user did by hand: nothing lies ahead of it.
    void remember(Step backwards);
};

} // namespace tintwell
