#include "Theme.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

/// One token: an opaque colour, or the text colour at an opacity.
struct Shade {
    QRgb rgb = 0;
    double textOpacity = 0;
};

struct Token {
    QColor Theme::*field;
    Shade light;
    Shade dark;
};

// clang-format off
constexpr auto tokens = std::to_array<Token>({
    // field                   light                    dark
    { &Theme::windowBackground, { 0xFFF7F7F8 },          { 0xFF232326 } },
    { &Theme::text,             { 0xFF18181B },          { 0xFFF5F5F7 } },
    { &Theme::secondary,        { .textOpacity = 0.70 },  { .textOpacity = 0.68 } },
    { &Theme::tertiary,         { .textOpacity = 0.60 },  { .textOpacity = 0.54 } },
    { &Theme::quaternaryFill,   { .textOpacity = 0.07 },  { .textOpacity = 0.09 } },
    { &Theme::separator,        { .textOpacity = 0.12 },  { .textOpacity = 0.12 } },
    { &Theme::swatchEdge,       { .textOpacity = 0.054 }, { .textOpacity = 0.054 } },
    { &Theme::controlFill,      { .textOpacity = 0.055 }, { .textOpacity = 0.08 } },
    { &Theme::controlHover,     { .textOpacity = 0.09 },  { .textOpacity = 0.13 } },
    { &Theme::controlPressed,   { .textOpacity = 0.14 },  { .textOpacity = 0.19 } },
    { &Theme::controlStroke,    { .textOpacity = 0.10 },  { .textOpacity = 0.08 } },
    { &Theme::fieldBackground,  { 0xFFFFFFFF },          { 0xFF1B1B1E } },
    { &Theme::menuBackground,   { 0xFFFFFFFF },          { 0xFF303034 } },
    { &Theme::destructive,      { 0xFFC22B3F },          { 0xFFFF7D88 } },
});
// clang-format on

Theme makeTheme(Appearance appearance)
{
    Theme theme;
    theme.appearance = appearance;
    for (const auto& token : tokens) {
        const auto& shade = appearance == Appearance::light ? token.light : token.dark;
        theme.*token.field
            = shade.rgb != 0 ? QColor::fromRgb(shade.rgb) : faded(theme.text, shade.textOpacity);
    }
    theme.menuOutline = faded(appearance == Appearance::light ? Qt::black : Qt::white, 0.16);
    return theme;
}

} // namespace

const Theme& themeOf(Appearance appearance)
{
    static const Theme light = makeTheme(Appearance::light);
    static const Theme dark = makeTheme(Appearance::dark);
    return appearance == Appearance::light ? light : dark;
}

QColor composited(const QColor& top, const QColor& bottom)
{
    auto opaque = top;
    opaque.setAlphaF(1);
    return blended(bottom, opaque, top.alphaF());
}

QColor faded(const QColor& color, double opacity)
{
    auto result = color;
    result.setAlphaF(static_cast<float>(std::clamp(color.alphaF() * opacity, 0.0, 1.0)));
    return result;
}

QColor blended(const QColor& from, const QColor& to, double progress)
{
    const auto mix = [progress](float a, float b) {
        return static_cast<float>(
            std::clamp(static_cast<double>(a) + (static_cast<double>(b) - a) * progress, 0.0, 1.0));
    };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
        mix(from.blueF(), to.blueF()), mix(from.alphaF(), to.alphaF()));
}

} // namespace platform
