// Whether the interface is light or dark now, and whether things may move.
#pragma once

#include "Theme.h"

#include <QObject>
#include <QPalette>

#include <optional>

namespace platform {

/// What the desktop asks for; `nullopt` where it has no opinion or cannot be asked.
struct DesktopPreferences {
    std::optional<Appearance> appearance;
    std::optional<bool> reducesMotion;
    /// Windows have a button to minimise them.
    bool minimizes = false;

    bool operator==(const DesktopPreferences&) const = default;
};

/// The one place that knows the current theme. It keeps the application's palette in step, so every
/// widget is repainted by the ordinary palette change and asks `currentTheme()` while it paints.
///
/// Dark or light is what the desktop's settings say, else what the palette of the toolkit looks
/// like. Main thread only.
class ThemeSource : public QObject {
    Q_OBJECT
public:
    /// Created on first use; belongs to the application object, which must exist.
    static ThemeSource& instance();

    [[nodiscard]] const Theme& theme() const { return themeOf(appearance_); }
    [[nodiscard]] Appearance appearance() const { return appearance_; }

    /// True when the desktop asks for no animation: everything then switches at once.
    [[nodiscard]] bool reducesMotion() const { return reducesMotion_; }

    /// True when windows that draw their own frame have a button to minimise them.
    [[nodiscard]] bool minimizes() const { return desktop_.minimizes; }

    /// What the desktop says now.
    void setDesktopPreferences(const DesktopPreferences& preferences);

Q_SIGNALS:
    /// Something of the above has changed, and the palette has been set.
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit ThemeSource(QObject* parent);
    void readToolkitPalette();
    void applyPalette() const;
    void update();

    DesktopPreferences desktop_;
    Appearance toolkitAppearance_;
    Appearance appearance_;
    bool reducesMotion_;
    bool readingPalette_ = false;
};

/// The theme of this moment.
[[nodiscard]] inline const Theme& currentTheme()
{
    return ThemeSource::instance().theme();
}

} // namespace platform
