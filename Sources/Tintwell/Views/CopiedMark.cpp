#include "CopiedMark.h"

#include "Symbols.h"
#include "TintwellModel.h"

#include <QPainter>

#include <algorithm>

namespace tintwell {

namespace {

constexpr double inSeconds = 0.20;
constexpr double outSeconds = 0.14;
constexpr double smallestScale = 0.5;
constexpr double stroke = 3.2;

} // namespace

CopiedMark::CopiedMark(double size, QWidget* parent)
    : QWidget(parent)
    , size_(size)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setVisible(false);
}

void CopiedMark::show(bool isCopied, const QColor& color)
{
    if (isCopied)
        color_ = color;
    if (isCopied == isCopied_)
        return;
    isCopied_ = isCopied;
    const double from = presence_;
    if (isCopied) {
        setVisible(true);
        raise();
        auto spring = sourceChangeSpring;
        spring.response *= inSeconds / springDuration(spring);
        motion_.follow(spring, [this, from](double progress) {
            presence_ = std::clamp(from + (1 - from) * progress, 0.0, 1.0);
            update();
        });
    } else {
        motion_.run(
            outSeconds,
            [this, from](double share) {
                presence_ = from * (1 - share * share);
                update();
            },
            [this] { setVisible(false); });
    }
    // Nobody has seen the change, so nobody shall see it late.
    if (parentWidget() != nullptr && !parentWidget()->isVisible())
        motion_.finish();
}

void CopiedMark::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(presence_);
    painter.translate(QRectF(rect()).center());
    const double scale = smallestScale + (1 - smallestScale) * presence_;
    painter.scale(scale, scale);
    platform::paintSymbol(painter, platform::Symbol::checkmark,
        QRectF(-size_ / 2, -size_ / 2, size_, size_), color_, stroke);
}

} // namespace tintwell
