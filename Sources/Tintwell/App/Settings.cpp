#include "Settings.h"

namespace tintwell {

namespace {

constexpr auto keepsOpenKey = "KeepOpen";
constexpr auto offersShortcutKey = "OfferShortcut";

} // namespace

Settings::Settings()
    : file_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tintwell"),
        QStringLiteral("Tintwell"))
    , keepsOpen_(file_.value(QLatin1String(keepsOpenKey), false).toBool())
    , offersShortcut_(file_.value(QLatin1String(offersShortcutKey), true).toBool())
{
}

void Settings::setKeepsOpen(bool keepsOpen)
{
    keepsOpen_ = keepsOpen;
    file_.setValue(QLatin1String(keepsOpenKey), keepsOpen);
    file_.sync();
}

void Settings::setOffersShortcut(bool offersShortcut)
{
    offersShortcut_ = offersShortcut;
    file_.setValue(QLatin1String(offersShortcutKey), offersShortcut);
    file_.sync();
}

} // namespace tintwell
