// The services through which the application reaches the desktop: screen sampler, colour lists,
// pasteboard.
#pragma once

#include "ColorList.h"
#include "ColorSampler.h"
#include "PaletteModels.h"
#include "PalettePublisher.h"
#include "Pasteboard.h"
#include "Result.h"
#include "Scheduler.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tintwell {

[[nodiscard]] platform::Color toPlatformColor(const RGBAColor& color);

/// The sRGB colour, components clamped to 0…1; nothing when the platform colour has no sRGB form.
[[nodiscard]] std::optional<RGBAColor> fromPlatformColor(const platform::Color& color);

/// Adds `colors` to an empty list under their names; names that repeat get " 2", " 3" and so on, an
/// empty one becomes "Color".
void fillColorList(platform::ColorList& list, const std::vector<NamedColor>& colors);

/// Lets the user pick a colour from the screen.
class ScreenColorSampling {
public:
    using Completion = std::function<void(std::optional<RGBAColor>)>;

    virtual ~ScreenColorSampling() = default;

    /// Returns at once; calls `completion` exactly once, later, on the main thread, with nothing
    /// when the user cancelled or the colour has no sRGB form.
    virtual void sample(Completion completion) = 0;

    /// True while another pick has the screen.
    [[nodiscard]] virtual bool isBusy() const { return false; }
};

/// The application's sampler, over a fresh platform sampler for every pick. Here, and nowhere else,
/// every pick gets its one answer.
class ColorSamplerService final : public ScreenColorSampling {
public:
    /// `scheduler` outlives the service.
    ColorSamplerService(platform::ColorSamplerFactory makeSampler, platform::Scheduler& scheduler);
    ~ColorSamplerService() override;

    /// A pick that is pending when the service goes still gets its one answer: nothing.
    void sample(Completion completion) override;

    [[nodiscard]] bool hasActiveSampler() const;

private:
    struct State;
    platform::ColorSamplerFactory makeSampler_;
    platform::Scheduler& scheduler_;
    std::shared_ptr<State> state_;
};

/// What an installer can refuse, with its fixed description.
class TintwellError {
public:
    [[nodiscard]] static platform::Error colorListNotEditable(const std::string& name);
    [[nodiscard]] static platform::Error emptyPalette();
};

/// Every install of a palette fills this one list, whatever the palette is called.
inline constexpr auto installedListName = "Tintwell";

/// Installs palettes as named colour lists.
class ColorListInstalling {
public:
    virtual ~ColorListInstalling() = default;

    /// Fills the list `name` with `colors` and saves it; returns the file that was written. Without
    /// a destination that is the registry's list, which is also published to the user's drawing
    /// programs; a destination that ends in a separator is a folder for `<name>.clr`, any other the
    /// file itself.
    virtual platform::Result<std::filesystem::path> install(const std::string& name,
        const std::vector<NamedColor>& colors,
        const std::optional<std::filesystem::path>& destination)
        = 0;

    /// Which drawing programs the last installation reached.
    [[nodiscard]] virtual const platform::Publication& publication() const
    {
        static const platform::Publication none;
        return none;
    }
};

/// Installs them as the desktop's lists.
class MacColorListInstaller final : public ColorListInstalling {
public:
    MacColorListInstaller(
        platform::ColorListRegistry registry, platform::PalettePublisher publisher);

    platform::Result<std::filesystem::path> install(const std::string& name,
        const std::vector<NamedColor>& colors,
        const std::optional<std::filesystem::path>& destination) override;

    [[nodiscard]] const platform::Publication& publication() const override { return publication_; }

private:
    [[nodiscard]] bool mayFill(const std::string& name) const;
    [[nodiscard]] platform::Result<std::filesystem::path> writeTo(
        const std::filesystem::path& destination, const platform::ColorList& list) const;

    platform::ColorListRegistry registry_;
    platform::PalettePublisher publisher_;
    platform::Publication publication_;
};

/// The colour that another program has offered: that of its text in any form of CSS, else the
/// colour itself, which also goes before a text that names it without its alpha.
[[nodiscard]] std::optional<RGBAColor> fromPastedContent(const platform::PastedContent& content);

/// Writes one colour to a pasteboard: the colour with its alpha, and its hex text.
struct ColorPasteboard {
    static void write(const NamedColor& color, platform::Pasteboard& pasteboard);
    /// The two forms in which a colour leaves the application by copy or drag.
    [[nodiscard]] static platform::ColorContent content(const RGBAColor& color);
};

} // namespace tintwell
