#include "Fonts.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QStringList>

#include <cmath>

namespace platform {

namespace {

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
    const auto wished = QGuiApplication::font().family();
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
    const bool isSmall = size == 10 || size == 11;
    return static_cast<int>(isSmall ? std::ceil(size * 1.21) : std::round(size * 1.21));
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

} // namespace platform
