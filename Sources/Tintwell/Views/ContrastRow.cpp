#include "ContrastRow.h"

#include "Accessibility.h"
#include "Symbols.h"
#include "TextPainting.h"
#include "ThemeSource.h"

#include <QFontMetricsF>
#include <QPainter>

namespace tintwell {

namespace {

constexpr double sealSize = 13;
constexpr double sealGap = 5;
constexpr double spacing = 12;
const platform::TextStyle textStyle { .size = 10, .weight = QFont::Medium };

} // namespace

ContrastRow::ContrastRow()
{
    platform::setAccessibleRole(*this, QAccessible::StaticText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ContrastRow::show(const std::vector<std::string>& contrasts)
{
    if (contrasts == shown_)
        return;
    shown_ = contrasts;
    QStringList texts;
    for (const auto& contrast : contrasts)
        texts.append(QString::fromStdString(contrast));
    setAccessibleName(texts.join(QStringLiteral(", ")));
    update();
}

QSize ContrastRow::sizeHint() const
{
    return { 0, platform::lineHeightOf(textStyle) };
}

void ContrastRow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto color = platform::currentTheme().secondary;
    double x = 0;
    for (const auto& contrast : shown_) {
        const auto text = QString::fromStdString(contrast);
        platform::paintSymbol(painter, platform::Symbol::seal,
            QRectF(x, (height() - sealSize) / 2, sealSize, sealSize), color);
        x += sealSize + sealGap;
        const double textWidth = QFontMetricsF(platform::fontOf(textStyle)).horizontalAdvance(text);
        platform::paintLine(
            painter, QRectF(x, 0, textWidth + spacing, height()), text, textStyle, color);
        x += textWidth + spacing;
    }
}

} // namespace tintwell
