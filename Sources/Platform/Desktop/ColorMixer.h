// Mixes a colour by wheel and brightness, by channel, or from numbers and hex text.
#pragma once

#include "ColorSlider.h"
#include "ColorWheel.h"
#include "PlateField.h"

#include <QColor>
#include <QWidget>

#include <array>

namespace platform {

class ColorMixer : public QWidget {
public:
    explicit ColorMixer(QWidget* parent);

    void setColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Channel {
        ColorSlider* slider = nullptr;
        PlateField* field = nullptr;
    };

    void makeChannel(std::size_t index);
    void setHsv(double hue, double saturation, double value);
    void setChannel(std::size_t index, double value);
    void readHex();
    void showColor();

    QColor color_ { 0x6E, 0x56, 0xCF };
    /// Kept while the colour itself has none: a grey has no hue, black no saturation.
    double hue_ = 0;
    double saturation_ = 0;

    ColorWheel wheel_;
    ColorSlider brightness_;
    std::array<Channel, 4> channels_;
    PlateField hex_;
};

} // namespace platform
