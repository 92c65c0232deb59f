#include "Fonts.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QStringList>

#include <array>
#include <cmath>

namespace platform {

namespace {

struct LineHeight {
    double size;
    int height;
};

constexpr auto lineHeights = std::to_array<LineHeight>({ { 24, 29 }, { 15, 18 }, { 14, 17 },
    { 13, 16 }, { 12, 15 }, { 11, 14 }, { 10, 13 }, { 9, 11 } });

QString& chosenFamily()
{
    static QString family;
    return family;
}

/// A family that only says "take the default" is no wish of the desktop.
bool isGeneric(const QString& family)
{
    static const QStringList generic { QString(), QStringLiteral("sans"),
        QStringLiteral("sans-serif"), QStringLiteral("sans serif"), QStringLiteral("helvetica") };
    return generic.contains(family.toLower());
}

QStringList interfaceFamilies()
{
    const QStringList fallbacks { QStringLiteral("Inter"), QStringLiteral("Adwaita Sans"),
        QStringLiteral("Cantarell"), QStringLiteral("Noto Sans"), QStringLiteral("sans-serif") };
    const auto wished
        = chosenFamily().isEmpty() ? QGuiApplication::font().family() : chosenFamily();
    return isGeneric(wished) ? fallbacks : QStringList { wished } + fallbacks;
}

QStringList monospacedFamilies()
{
    return { QStringLiteral("JetBrains Mono"), QStringLiteral("Adwaita Mono"),
        QStringLiteral("Noto Sans Mono"), QStringLiteral("DejaVu Sans Mono"),
        QStringLiteral("monospace") };
}

} // namespace

QFont fontOf(const TextStyle& style)
{
    QFont font;
    if (style.design == FontDesign::monospaced) {
        font.setFamilies(monospacedFamilies());
        font.setStyleHint(QFont::Monospace);
        // Contextual alternates would join characters; plain glyphs keep every cell on its own.
        font.setStyleStrategy(QFont::PreferNoShaping);
    } else {
        font.setFamilies(interfaceFamilies());
        font.setStyleHint(QFont::SansSerif);
    }
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(style.size))));
    font.setWeight(style.weight);
    // Widths that do not depend on the scale of the screen keep the layout the same on every one.
    font.setHintingPreference(QFont::PreferVerticalHinting);
    if (style.letterSpacing != 0)
        font.setLetterSpacing(QFont::AbsoluteSpacing, style.letterSpacing);
    return font;
}

int lineHeightOf(double size)
{
    for (const auto& line : lineHeights) {
        if (line.size == size)
            return line.height;
    }
    return static_cast<int>(std::lround(size * 1.21));
}

int lineHeightOf(const TextStyle& style)
{
    return style.lineHeight > 0 ? style.lineHeight : lineHeightOf(style.size);
}

double baselineOf(const TextStyle& style)
{
    const QFontMetricsF metrics(fontOf(style));
    return (lineHeightOf(style) - metrics.ascent() - metrics.descent()) / 2 + metrics.ascent();
}

void setInterfaceFamily(const QString& family)
{
    chosenFamily() = family;
}

} // namespace platform
