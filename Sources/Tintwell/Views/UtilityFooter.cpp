#include "UtilityFooter.h"

#include "Metrics.h"
#include "PopupMenu.h"
#include "Stack.h"

#include <utility>

namespace tintwell {

namespace {

constexpr int footerPaddingY = 11;
constexpr int footerSpacing = 10;

} // namespace

UtilityFooter::UtilityFooter(
    TintwellModel& model, std::function<void()> openColorPanel, std::function<void()> quit)
    : model_(model)
    , openColorPanel_(std::move(openColorPanel))
    , quit_(std::move(quit))
    , status_(new platform::StatusLine({ .size = 10 }, &platform::Theme::secondary))
    , menu_(platform::menuButton(QStringLiteral("More")))
{
    using platform::Metrics::margin;
    auto* save
        = platform::prominentButton(QStringLiteral("Save + Install"), platform::Symbol::tray);
    save->setToolTip(QStringLiteral("Save and install this palette — Ctrl+S"));
    menu_->setToolTip(QStringLiteral("More — Ctrl+Q quits"));
    connect(save, &platform::Button::clicked, this, [this] { model_.saveAndInstallCurrent(); });
    connect(menu_, &platform::Button::clicked, this, &UtilityFooter::openMenu);
    // A long status is cut; it never widens the panel.
    status_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setLayout(platform::padded(
        platform::hstack(footerSpacing, { platform::flexible(status_), save, menu_ }),
        QMargins(
            margin, footerPaddingY, margin - platform::Metrics::opticalOverhang, footerPaddingY)));
}

void UtilityFooter::show(const std::string& status, std::size_t number)
{
    if (std::exchange(shownNumber_, number) == number)
        return;
    status_->setToolTip(QString::fromStdString(model_.statusDetail()));
    status_->announce(QString::fromStdString(status));
}

void UtilityFooter::openMenu()
{
    platform::PopupMenu::open(*menu_,
        { { QStringLiteral("Open macOS Colors"), platform::Symbol::palette,
              [this] {
                  openColorPanel_();
                  model_.setStatus("Opened macOS Colors");
              } },
            {}, { QStringLiteral("Quit Tintwell"), platform::Symbol::power, quit_ } },
        tint_, !menu_->isClickedByPointer());
}

} // namespace tintwell
