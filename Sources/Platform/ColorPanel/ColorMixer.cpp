#include "ColorMixer.h"

#include "SwatchPainting.h"
#include "TextPainting.h"
#include "ThemeSource.h"
#include "ToolkitColor.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr QRect wheelArea { 20, 20, 208, 208 };
/// With the room that the knob takes on either side of its 18.
constexpr QRect brightnessArea { 238, 20, 24, 208 };
constexpr QRect preview { 272, 20, 44, 208 };
constexpr double previewRadius = 10;
constexpr int channelTop = 244;
constexpr int channelStep = 35;
constexpr int rowHeight = 26;
/// With the room that the knob takes on either side of 198.
constexpr int trackLeft = 52;
constexpr int trackWidth = 206;
constexpr int fieldLeft = 264;
constexpr int fieldWidth = 52;
constexpr QRect hexArea { 56, 389, 130, 28 };
constexpr QRect useArea { 196, 389, 120, 28 };
constexpr int labelLeft = 20;
constexpr double fieldRadius = 6;
constexpr TextStyle labelStyle { .size = 13 };
constexpr TextStyle numberStyle { .size = 13 };
constexpr TextStyle hexStyle { .size = 13, .design = FontDesign::monospaced };

struct ChannelRule {
    const char16_t* label;
    const char16_t* name;
    float (QColor::*value)() const;
    void (QColor::*set)(float);
};

// clang-format off
constexpr std::array channels {
    ChannelRule { u"R", u"Red",   &QColor::redF,   &QColor::setRedF },
    ChannelRule { u"G", u"Green", &QColor::greenF, &QColor::setGreenF },
    ChannelRule { u"B", u"Blue",  &QColor::blueF,  &QColor::setBlueF },
    ChannelRule { u"A", u"Alpha", &QColor::alphaF, &QColor::setAlphaF },
};
// clang-format on
constexpr std::size_t alpha = 3;
constexpr unsigned mostOfChannel = 255;

/// The colour in 256 steps a channel, so that numbers, hex text and what is copied say the same.
QColor inBytes(const QColor& color)
{
    return toQColor(fromQColor(color));
}

QRect channelRow(std::size_t index)
{
    return { labelLeft, channelTop + static_cast<int>(index) * channelStep, 0, rowHeight };
}

QColor with(QColor color, std::size_t channel, double value)
{
    (color.*channels[channel].set)(static_cast<float>(value));
    return color;
}

/// RRGGBB or RRGGBBAA, with or without the "#".
QColor colorFromHex(QString text)
{
    text = text.trimmed();
    if (text.startsWith(u'#'))
        text.remove(0, 1);
    bool valid = false;
    const auto digits = text.toUInt(&valid, 16);
    if (!valid || (text.size() != 6 && text.size() != 8))
        return {};
    const bool hasAlpha = text.size() == 8;
    const auto rgb = hasAlpha ? digits >> 8U : digits;
    auto color = QColor::fromRgb(rgb | 0xFF000000U);
    if (hasAlpha)
        color.setAlpha(static_cast<int>(digits & 0xFFU));
    return color;
}

} // namespace

void ColorWell::show(const QColor& color)
{
    setColor(color);
    setAccessibleTexts(*this, QStringLiteral("Mixed color, ") + hexText(color), {});
    setToolTip(QStringLiteral("Copy ") + hexText(color));
}

void ColorWell::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    if (hasFocus())
        paintSwatch(painter, rect(), cornerRadius(), color(), currentTheme().secondary, 2);
    else
        paintSwatch(painter, rect(), cornerRadius(), color());
}

ColorMixer::ColorMixer(std::function<void(const QColor&)> taken,
    std::function<void(const QColor&)> used, QWidget* parent)
    : QWidget(parent)
    , wheel_(
          [this](double hue, double saturation) { setHsv(hue, saturation, color_.valueF()); }, this)
    , brightness_(
          Qt::Vertical, QStringLiteral("Brightness"),
          [this](double value) { setHsv(hue_, saturation_, value); }, this)
    , well_(
          color_, previewRadius, [this, taken = std::move(taken)] { taken(color_); }, this)
    , hex_(hexStyle, fieldRadius, 10, 10, this)
    , use_(ButtonStyle::bordered, QStringLiteral("Use as Source"), std::nullopt, this)
{
    wheel_.setGeometry(wheelArea);
    brightness_.setGeometry(brightnessArea);
    well_.setGeometry(preview);
    for (std::size_t index = 0; index < channels_.size(); ++index)
        makeChannel(index);
    hex_.setGeometry(hexArea);
    hex_.setAccessibleName(QStringLiteral("Hex"));
    connect(&hex_, &QLineEdit::editingFinished, this, [this] { readHex(); });
    use_.setGeometry(useArea);
    connect(&use_, &Button::clicked, this, [this, used = std::move(used)] { used(color_); });
    setColor(color_);
}

void ColorMixer::makeChannel(std::size_t index)
{
    const auto name = QString::fromUtf16(channels[index].name);
    const auto row = channelRow(index);
    auto& channel = channels_[index];
    channel.slider = new ColorSlider(
        Qt::Horizontal, name, [this, index](double value) { setChannel(index, value); }, this);
    channel.slider->setGeometry(trackLeft, row.y(), trackWidth, rowHeight);
    channel.field = new TextField(numberStyle, fieldRadius, 4, 9, this);
    channel.field->setGeometry(fieldLeft, row.y(), fieldWidth, rowHeight);
    channel.field->setAlignment(Qt::AlignRight);
    channel.field->setAccessibleName(name);
    channel.field->installEventFilter(this);
    connect(channel.field, &QLineEdit::textEdited, this, [this, index](const QString& text) {
        bool isNumber = false;
        const auto number = text.toUInt(&isNumber);
        if (isNumber && number <= mostOfChannel)
            setChannel(index, number / static_cast<double>(mostOfChannel));
    });
    connect(channel.field, &QLineEdit::editingFinished, this, [this, index] { readNumber(index); });
}

void ColorMixer::readNumber(std::size_t index)
{
    bool isNumber = false;
    const auto number = channels_[index].field->text().trimmed().toUInt(&isNumber);
    if (isNumber)
        setChannel(index, std::min(number, mostOfChannel) / static_cast<double>(mostOfChannel));
    else
        showColor();
}

bool ColorMixer::stepNumber(const QObject* field, int steps)
{
    for (const auto& channel : channels_)
        if (channel.field == field) {
            channel.slider->adjustTo(
                channel.slider->adjustedValue() + steps / double { mostOfChannel });
            return true;
        }
    return false;
}

/// Up, Down and the wheel step the number of the field that they are for.
bool ColorMixer::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Wheel)
        return stepNumber(watched, static_cast<QWheelEvent*>(event)->angleDelta().y() > 0 ? 1 : -1);
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* press = static_cast<QKeyEvent*>(event);
    const int step = press->modifiers().testFlag(Qt::ShiftModifier) ? 10 : 1;
    if (press->key() == Qt::Key_Up)
        return stepNumber(watched, step);
    if (press->key() == Qt::Key_Down)
        return stepNumber(watched, -step);
    return QWidget::eventFilter(watched, event);
}

void ColorMixer::setColor(const QColor& color)
{
    color_ = inBytes(color.toRgb());
    const auto hsv = color_.toHsv();
    if (hsv.hsvHueF() >= 0)
        hue_ = hsv.hsvHueF();
    if (hsv.valueF() > 0)
        saturation_ = hsv.hsvSaturationF();
    showColor();
}

void ColorMixer::setHsv(double hue, double saturation, double value)
{
    hue_ = hue;
    saturation_ = saturation;
    color_ = inBytes(QColor::fromHsvF(static_cast<float>(hue), static_cast<float>(saturation),
        static_cast<float>(value), color_.alphaF())
                         .toRgb());
    showColor();
}

void ColorMixer::setChannel(std::size_t index, double value)
{
    setColor(with(color_, index, value));
}

void ColorMixer::readHex()
{
    if (const auto color = colorFromHex(hex_.text()); color.isValid())
        setColor(color);
    else
        showColor();
}

void ColorMixer::showColor()
{
    auto opaque = color_;
    opaque.setAlpha(255);
    const auto brightest
        = QColor::fromHsvF(static_cast<float>(hue_), static_cast<float>(saturation_), 1);
    wheel_.show(hue_, saturation_, opaque);
    brightness_.show(color_.valueF(), Qt::black, brightest);
    well_.show(color_);
    for (std::size_t index = 0; index < channels_.size(); ++index) {
        const auto& base = index == alpha ? color_ : opaque;
        const double value = (color_.*channels[index].value)();
        channels_[index].slider->show(value, with(base, index, 0), with(base, index, 1));
        const auto number = QString::number(std::lround(value * 255));
        if (channels_[index].field->text() != number)
            channels_[index].field->setText(number);
    }
    hex_.setText(hexText(color_));
    update();
}

void ColorMixer::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const auto label = [&](const QRectF& row, const QString& text) {
        paintLine(painter, { labelLeft, row.y(), trackLeft, row.height() }, text, labelStyle,
            currentTheme().secondary);
    };
    for (std::size_t index = 0; index < channels_.size(); ++index)
        label(channelRow(index), QString::fromUtf16(channels[index].label));
    label(hexArea, QStringLiteral("Hex"));
}

} // namespace platform
