// The records of a derived palette: plain values, whole in themselves.
#pragma once

#include "RGBAColor.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tintwell {

/// One colour with its label. `id` is unique within the list that holds it; `detail` is a short
/// caption.
struct NamedColor {
    std::string id;
    std::string name;
    RGBAColor color;
    std::optional<std::string> detail;

    bool operator==(const NamedColor&) const = default;
};

/// A titled group of colours in display order.
struct PaletteSection {
    std::string id;
    std::string title;
    std::string subtitle;
    std::vector<NamedColor> colors;

    bool operator==(const PaletteSection&) const = default;
};

/// What a theme is made for.
enum class Appearance { light, dark };

/// "light" or "dark".
[[nodiscard]] std::string_view rawValue(Appearance appearance);
[[nodiscard]] std::optional<Appearance> appearanceFromRawValue(std::string_view text);

/// One interface theme: the semantic roles in fixed order.
struct ThemePalette {
    Appearance appearance = Appearance::light;
    std::vector<NamedColor> colors;

    /// "light" or "dark": by it themes are told apart.
    [[nodiscard]] std::string_view id() const { return rawValue(appearance); }

    /// The colour of the first role of exactly that name, or nothing.
    [[nodiscard]] std::optional<RGBAColor> colorNamed(std::string_view name) const;

    bool operator==(const ThemePalette&) const = default;
};

/// Everything that follows from one source colour.
struct GeneratedPalette {
    RGBAColor source;
    std::string sourceName;
    std::vector<PaletteSection> harmonySections;
    PaletteSection monochromatic;
    PaletteSection tonal;
    ThemePalette lightTheme;
    ThemePalette darkTheme;

    /// The source, every section, then both themes with "light." and "dark." before their ids:
    /// the same ids for every source.
    [[nodiscard]] std::vector<NamedColor> allColors() const;

    /// The flat list that stands for the palette outside the system: `allColors` without entries
    /// whose name and hex text came before.
    [[nodiscard]] std::vector<NamedColor> exportColors() const;

    bool operator==(const GeneratedPalette&) const = default;
};

} // namespace tintwell

template <> struct std::hash<tintwell::NamedColor> {
    std::size_t operator()(const tintwell::NamedColor& color) const noexcept;
};

template <> struct std::hash<tintwell::PaletteSection> {
    std::size_t operator()(const tintwell::PaletteSection& section) const noexcept;
};

template <> struct std::hash<tintwell::ThemePalette> {
    std::size_t operator()(const tintwell::ThemePalette& theme) const noexcept;
};

template <> struct std::hash<tintwell::GeneratedPalette> {
    std::size_t operator()(const tintwell::GeneratedPalette& palette) const noexcept;
};
