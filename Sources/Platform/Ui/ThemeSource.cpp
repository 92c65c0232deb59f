#include "ThemeSource.h"

#include "Fonts.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>
#include <QToolTip>

namespace platform {

namespace {

Appearance appearanceOf(const QPalette& palette)
{
    const auto background = palette.color(QPalette::Active, QPalette::Window);
    const auto text = palette.color(QPalette::Active, QPalette::WindowText);
    return background.lightnessF() < text.lightnessF() ? Appearance::dark : Appearance::light;
}

/// Opacity of the text colour behind selected text and menu entries.
constexpr double selectionOpacity = 0.18;

QPalette paletteOf(const Theme& theme)
{
    const auto solid
        = [&theme](const QColor& color) { return composited(color, theme.windowBackground); };
    QPalette palette;
    palette.setColor(QPalette::Window, theme.windowBackground);
    palette.setColor(QPalette::WindowText, theme.text);
    palette.setColor(QPalette::Base, theme.fieldBackground);
    palette.setColor(QPalette::AlternateBase, theme.windowBackground);
    palette.setColor(QPalette::Text, theme.text);
    palette.setColor(QPalette::PlaceholderText, theme.tertiary);
    palette.setColor(QPalette::Button, solid(theme.controlFill));
    palette.setColor(QPalette::ButtonText, theme.text);
    palette.setColor(QPalette::ToolTipBase, theme.menuBackground);
    palette.setColor(QPalette::ToolTipText, theme.text);
    palette.setColor(QPalette::Highlight, solid(faded(theme.text, selectionOpacity)));
    palette.setColor(QPalette::HighlightedText, theme.text);
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText })
        palette.setColor(QPalette::Disabled, role, theme.tertiary);
    return palette;
}

/// Styles that know the desktop's switch answer 0 when it is off; all others have some duration.
bool styleReducesMotion()
{
    return QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) == 0;
}

} // namespace

ThemeSource& ThemeSource::instance()
{
    static auto* source = new ThemeSource(qApp);
    return *source;
}

ThemeSource::ThemeSource(QObject* parent)
    : QObject(parent)
    , toolkitAppearance_(appearanceOf(QApplication::palette()))
    , appearance_(toolkitAppearance_)
    , reducesMotion_(styleReducesMotion())
{
    parent->installEventFilter(this);
    // For what the toolkit draws itself: the menu of a text field, the tip of the tray item.
    QApplication::setFont(fontOf({ .size = 13 }), "QMenu");
    QToolTip::setFont(fontOf({ .size = 11 }));
    applyPalette();
}

void ThemeSource::applyPalette() const
{
    const auto palette = paletteOf(theme());
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

void ThemeSource::setDesktopPreferences(const DesktopPreferences& preferences)
{
    const bool framesChange = preferences.minimizes != desktop_.minimizes;
    desktop_ = preferences;
    update();
    if (framesChange)
        Q_EMIT changed();
}

bool ThemeSource::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ThemeChange && !readingPalette_)
        readToolkitPalette();
    return QObject::eventFilter(watched, event);
}

void ThemeSource::readToolkitPalette()
{
    readingPalette_ = true;
    // The toolkit's palette, which follows the desktop, shows once ours is taken away.
    QApplication::setPalette(QPalette());
    toolkitAppearance_ = appearanceOf(QApplication::palette());
    applyPalette();
    readingPalette_ = false;
    update();
}

void ThemeSource::update()
{
    const auto appearance = desktop_.appearance.value_or(toolkitAppearance_);
    const auto reduces = desktop_.reducesMotion.value_or(styleReducesMotion());
    if (appearance == appearance_ && reduces == reducesMotion_)
        return;
    const auto repaint = appearance != appearance_;
    appearance_ = appearance;
    reducesMotion_ = reduces;
    if (repaint)
        applyPalette();
    Q_EMIT changed();
}

} // namespace platform
