// Mixes a colour by wheel and brightness, by channel, or from numbers and hex text.
#pragma once

#include "Button.h"
#include "ColorSlider.h"
#include "ColorSwatch.h"
#include "ColorWheel.h"
#include "TextField.h"

#include <QColor>
#include <QWidget>

#include <array>
#include <functional>

namespace platform {

/// The mixed colour, large.
class ColorWell : public ColorSwatch {
public:
    using ColorSwatch::ColorSwatch;

    void show(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;
};

class ColorMixer : public QWidget {
public:
    /// `taken` hears of a press on the mixed colour, `used` of one on "Use as Source".
    ColorMixer(std::function<void(const QColor&)> taken, std::function<void(const QColor&)> used,
        QWidget* parent);

    void setColor(const QColor& color);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Channel {
        ColorSlider* slider = nullptr;
        TextField* field = nullptr;
    };

    void makeChannel(std::size_t index);
    void setHsv(double hue, double saturation, double value);
    void setChannel(std::size_t index, double value);
    /// A number above 255 becomes that; what is no number becomes the one that holds.
    void readNumber(std::size_t index);
    /// Moves the channel of a number's field; false when the field is none.
    bool stepNumber(const QObject* field, int steps);
    void readHex();
    void showColor();

    QColor color_ { 0x6E, 0x56, 0xCF };
    /// Kept while the colour itself has none: a grey has no hue, black no saturation.
    double hue_ = 0;
    double saturation_ = 0;

    ColorWheel wheel_;
    ColorSlider brightness_;
    ColorWell well_;
    std::array<Channel, 4> channels_;
    TextField hex_;
    Button use_;
};

} // namespace platform
