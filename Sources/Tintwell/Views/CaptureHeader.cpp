#include "CaptureHeader.h"

#include "Accessibility.h"
#include "BrandMark.h"
#include "ColorMimeData.h"
#include "MacColorIntegration.h"
#include "Metrics.h"
#include "QtColor.h"
#include "Stack.h"
#include "Theme.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPainter>

namespace tintwell {

namespace {

constexpr int swatchSide = 104;
constexpr double swatchRadius = 18;
constexpr int headerSpacing = 18;
constexpr int columnSpacing = 7;
constexpr int rowSpacing = 8;
constexpr double shadowSigma = 7.5;
constexpr double shadowDrop = 7;
constexpr double shadowOpacity = 0.18;
constexpr double markBox = 12;
constexpr int markPadding = 8;
// The light around the content while a colour is over the header.
constexpr double offerInset = 8;
constexpr double offerRadius = 14;
constexpr double offerLine = 2;
constexpr double offerLineOpacity = 0.9;
constexpr double offerFillOpacity = 0.16;

const platform::TextStyle wordmarkStyle {
    .size = 10, .weight = QFont::DemiBold, .letterSpacing = 1.5
};
const platform::TextStyle nameStyle {
    .size = 24, .weight = QFont::DemiBold, .letterSpacing = -0.3
};
const platform::TextStyle hexStyle {
    .size = 13, .weight = QFont::Medium, .design = platform::FontDesign::monospaced
};

} // namespace

CaptureHeader::CaptureHeader(TintwellModel& model)
    : model_(model)
    , swatch_(record(model.generated().source, model.generated().sourceName).makeNSView().release())
    , mark_(new CopiedMark(markBox, this))
    , ring_(new platform::FocusRing(*swatch_, swatchRadius))
    , name_(new platform::FadingName(nameStyle))
    , hex_(new platform::RollingText(hexStyle, &platform::Theme::secondary))
    , sample_(platform::prominentButton(QStringLiteral("Sample"), platform::Symbol::eyedropper))
    , copy_(platform::borderedIcon(platform::Symbol::copy, QStringLiteral("Copy")))
    , shadow_(swatchRadius, shadowSigma)
    , motion_(*swatch_, [this] { update(); })
{
    setAcceptDrops(true);
    swatch_->setFixedSize(swatchSide, swatchSide);
    setLayout(platform::padded(
        platform::hstack(headerSpacing, { swatch_, platform::flexible(makeColumn()) }),
        platform::Metrics::margin, platform::Metrics::margin));
    sample_->setToolTip(QStringLiteral("Sample a color from the screen — Ctrl+Shift+C"));
    connect(sample_, &platform::Button::clicked, this, [this] { model_.beginSampling(); });
    connect(copy_, &platform::Button::clicked, this, [this] { model_.copySource(); });
}

NativeColorSwatch CaptureHeader::record(const RGBAColor& color, const std::string& name) const
{
    return { color, name, swatchRadius, [this] { model_.copySource(); } };
}

QLayout* CaptureHeader::makeColumn()
{
    auto* brand = platform::hstack(rowSpacing,
        { new BrandMark,
            new platform::Label(
                wordmarkStyle, &platform::Theme::secondary, QStringLiteral("TINTWELL")) });
    auto* actions = platform::hstack(rowSpacing, { sample_, copy_, platform::spacer() });
    return platform::vstack(columnSpacing, { brand, name_, hex_, actions }, {});
}

void CaptureHeader::show(const HeaderState& state, const std::optional<platform::Spring>& spring)
{
    if (state == shown_)
        return;
    const auto name = QString::fromStdString(state.name);
    const auto tooltip = QString::fromStdString(state.copyTooltip);
    motion_.show(record(state.source, state.name), spring);
    name_->fadeTo(name, spring);
    hex_->rollTo(QString::fromStdString(state.hex), spring);
    mark_->show(state.isCopied, toQColor(state.mark));
    sample_->setTitle(QString::fromStdString(state.sampleTitle));
    setCanSample(state.canSample);
    copy_->setToolTip(tooltip);
    platform::setAccessibleTexts(*copy_, tooltip, {});
    shown_ = state;
    // Now, so that no frame shows a new title in the old width.
    layout()->activate();
    placeMark();
}

/// The button that started the pick has the focus again when the pick is over, unless the user has
/// gone elsewhere. Left alone, the toolkit would move it on as if Tab had been pressed.
void CaptureHeader::setCanSample(bool canSample)
{
    if (canSample == sample_->isEnabled())
        return;
    if (!canSample) {
        focusReturns_ = window()->focusWidget() == sample_;
        sample_->clearFocus();
    }
    sample_->setEnabled(canSample);
    if (canSample && focusReturns_ && window()->focusWidget() == nullptr)
        sample_->setFocus(Qt::OtherFocusReason);
}

void CaptureHeader::placeMark()
{
    constexpr int side = static_cast<int>(markBox) + 2 * markPadding;
    const auto swatch = swatch_->geometry();
    mark_->setGeometry(swatch.right() + 1 - side, swatch.top(), side, side);
}

void CaptureHeader::dragEnterEvent(QDragEnterEvent* event)
{
    // The source's own swatch may be dragged about without an effect.
    const bool isSource = event->source() != nullptr
        && fromPastedContent(platform::pastedContent(*event->mimeData()))
            == model_.generated().source;
    if (isSource || !platform::canHoldColor(*event->mimeData()))
        return;
    event->acceptProposedAction();
    lightUp(true);
}

void CaptureHeader::dragLeaveEvent(QDragLeaveEvent* /*event*/)
{
    lightUp(false);
}

void CaptureHeader::lightUp(bool isOffered)
{
    isOffered_ = isOffered;
    update();
}

void CaptureHeader::dropEvent(QDropEvent* event)
{
    lightUp(false);
    const auto content = platform::droppedContent(*event, *this);
    if (!content)
        return model_.setStatus("Nothing dropped: " + content.error().description);
    const auto color = fromPastedContent(content.value());
    if (!color)
        return model_.setStatus("Nothing dropped: it holds no color such as #6E56CF");
    model_.drop(*color);
    event->acceptProposedAction();
}

void CaptureHeader::resizeEvent(QResizeEvent*)
{
    layout()->activate();
    placeMark();
}

void CaptureHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (isOffered_) {
        painter.setRenderHint(QPainter::Antialiasing);
        const auto light = ring_->color();
        painter.setPen(QPen(platform::faded(light, offerLineOpacity), offerLine));
        painter.setBrush(platform::faded(light, offerFillOpacity));
        painter.drawRoundedRect(
            QRectF(rect()).adjusted(offerInset, offerInset, -offerInset, -offerInset), offerRadius,
            offerRadius);
    }
    shadow_.paint(painter, QRectF(swatch_->geometry()).translated(0, shadowDrop),
        platform::faded(swatch_->paintedColor(), shadowOpacity));
}

} // namespace tintwell
