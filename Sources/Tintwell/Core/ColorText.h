// Colours as people write them: read in every form of CSS, written in the usual ones.
#pragma once

#include "RGBAColor.h"

#include <optional>
#include <string>
#include <string_view>

namespace tintwell {

/// The forms that `colorFromText` reads, for a sentence.
inline constexpr auto colorForms = "RRGGBB, #RGB, rgb(), hsl(), oklch() or a CSS name";

/// The colour that `text` writes, or nothing.
///
/// Reads what `RGBAColor::fromHex` reads, and from CSS Color 4: #RGB and #RGBA, rgb(), hsl() and
/// oklch() with spaces or commas, percentages, alpha and none, and the names. Quotes, commas and
/// semicolons around it are passed over, and so is a declaration: "color: #abc;", "--brand: red". A
/// colour outside sRGB loses chroma until it fits (oklch) or its components are clamped.
[[nodiscard]] std::optional<RGBAColor> colorFromText(std::string_view text);

// The colour in the syntax of CSS Color 4, with "/ 0.5" for one that is not opaque. The texts read
// back to the same `bytes`.

/// "rgb(110 86 207)".
[[nodiscard]] std::string rgbText(const RGBAColor& color);

/// "hsl(251.9 55.8% 57.5%)".
[[nodiscard]] std::string hslText(const RGBAColor& color);

/// "oklch(54.17% 0.179 288.03)".
[[nodiscard]] std::string oklchText(const RGBAColor& color);

/// "--tintwell-tone-500" for an id such as "tone.500".
[[nodiscard]] std::string customPropertyName(std::string_view id);

/// "--tintwell-tone-500: #7B65DF;".
[[nodiscard]] std::string customProperty(std::string_view id, const RGBAColor& color);

} // namespace tintwell
