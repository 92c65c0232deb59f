#include "Symbols.h"

#include "PathData.h"

#include <QColor>
#include <QPainter>
#include <QPainterPathStroker>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <utility>
#include <vector>

namespace platform {

namespace {

constexpr double gridSide = 24;

// Path arithmetic flattens curves in whole units; on a finer grid its corners are too small to see.
constexpr double detail = 10;

/// Dots stand on every point of their path data.
enum class Ink { stroke, fill, dots, clearStroke, clearDots };

/// A step of a drawing. `width` is the thickness of a line or dot; 0 takes the symbol's own
/// thickness, a negative number is a multiple of it.
struct Step {
    Ink ink;
    const char* data;
    double width = 0;
};

struct Drawing {
    Symbol symbol;
    std::vector<Step> steps;
    double turnDegrees = 0;
};

constexpr auto paletteOutline = "M12 3.1C6.85 3.1 2.9 7.05 2.9 12C2.9 17 6.8 20.9 11.5 20.9"
                                "C13.1 20.9 13.95 19.85 13.85 18.5C13.75 16.95 14.7 15.85 16.2 "
                                "15.85H17.9C19.9 15.85 21.1 14.55 21.1 12.4C21.1 7.05 17.1 3.1 12 "
                                "3.1Z";
constexpr auto paletteDots = "M7 12.6L8.7 8.2L13.2 6.9L17.1 9.9";
constexpr auto dropper
    = "M9.2 8.2V3.5C9.2 1.9536 10.4536 0.7 12 0.7C13.5464 0.7 14.8 1.9536 14.8 3.5V8.2"
      "M6.9 8.3H17.1M9.3 8.6V16.7C9.3 17.1 9.42 17.5 9.66 17.82L12 20.9L14.34 17.82"
      "C14.58 17.5 14.7 17.1 14.7 16.7V8.6M12 20.9V23.2";
constexpr auto dropperContent
    = "M9.3 13.2V16.7C9.3 17.1 9.42 17.5 9.66 17.82L12 20.9L14.34 17.82C14.58 17.5 14.7 17.1 14.7 "
      "16.7V13.2Z";
constexpr auto slash = "M4 2.5L20 21.7";

const auto drawings = std::to_array<Drawing>({
    { Symbol::eyedropper, { { Ink::stroke, dropper } }, 45 },
    { Symbol::eyedropperHalf, { { Ink::stroke, dropper }, { Ink::fill, dropperContent } }, 45 },
    { Symbol::copy,
        { { Ink::stroke,
            "M8.9 15.9H7.1C5.6641 15.9 4.5 14.7359 4.5 13.3V5.5C4.5 4.0641 5.6641 2.9 7.1 2.9"
            "H12.3C13.7359 2.9 14.9 4.0641 14.9 5.5V7.6M11.5 7.9H16.9"
            "C18.3359 7.9 19.5 9.0641 19.5 10.5V18.5C19.5 19.9359 18.3359 21.1 16.9 21.1H11.5"
            "C10.0641 21.1 8.9 19.9359 8.9 18.5V10.5C8.9 9.0641 10.0641 7.9 11.5 7.9Z" } } },
    { Symbol::checkmark, { { Ink::stroke, "M4.6 12.9L9.6 17.9L19.4 6.6" } } },
    // The seal's own shape is a formula, not path data.
    { Symbol::seal, { { Ink::clearStroke, "M7.9 12.5L10.8 15.3L16.2 9", 2 } } },
    { Symbol::palette, { { Ink::stroke, paletteOutline }, { Ink::dots, paletteDots, 2.6 } } },
    { Symbol::paletteFill,
        { { Ink::fill, paletteOutline }, { Ink::stroke, paletteOutline, 1.8 },
            { Ink::clearDots, paletteDots, 3 } } },
    { Symbol::tray,
        { { Ink::stroke,
            "M12 3.2V14.6M7.4 10.2L12 14.8L16.6 10.2M3.6 14.2V17.6"
            "C3.6 19.2569 4.9431 20.6 6.6 20.6H17.4C19.0569 20.6 20.4 19.2569 20.4 17.6V14.2" } } },
    { Symbol::power,
        { { Ink::stroke,
            "M7.3 5.6C4.303 7.659 2.9952 11.429 4.0731 14.9017"
            "C5.1511 18.3743 8.3639 20.7411 12 20.7411"
            "C15.6361 20.7411 18.8489 18.3743 19.9269 14.9017"
            "C21.0048 11.429 19.697 7.659 16.7 5.6M12 2.9V11.4" } } },
    { Symbol::ellipsis, { { Ink::dots, "M5.2 12L12 12L18.8 12", 3.3 } } },
    { Symbol::stackSlash,
        { { Ink::stroke,
              "M12 3.4L20.8 7.6L12 11.8L3.2 7.6Z M3.2 12.1L12 16.3L20.8 12.1 M3.2 16.5L12 "
              "20.7L20.8 16.5" },
            { Ink::clearStroke, slash, -2.7 }, { Ink::stroke, slash } } },
    { Symbol::trash,
        { { Ink::stroke,
            "M4.2 6.6H19.8M9.1 6.3V5.2C9.1 4.0954 9.9954 3.2 11.1 3.2H12.9"
            "C14.0046 3.2 14.9 4.0954 14.9 5.2V6.3M6.2 6.8L7 18.1"
            "C7.0538 19.552 8.247 20.701 9.7 20.7H14.3C15.753 20.701 16.9462 19.552 17 18.1"
            "L17.8 6.8M10.1 10.9V16.4M13.9 10.9V16.4" } } },
    { Symbol::close, { { Ink::stroke, "M6 6L18 18M18 6L6 18" } } },
    { Symbol::minimize, { { Ink::stroke, "M5.5 16H18.5" } } },
});

QPainterPath sealShape()
{
    constexpr int points = 192;
    QPainterPath path;
    for (int i = 0; i < points; ++i) {
        const auto t = 2 * std::numbers::pi * i / points;
        const auto r = 9.55 + 0.62 * std::cos(8 * t);
        const auto point = QPointF(12 + r * std::cos(t), 12 + r * std::sin(t)) * detail;
        i == 0 ? path.moveTo(point) : path.lineTo(point);
    }
    path.closeSubpath();
    return path;
}

QPainterPath strokeOf(const QPainterPath& path, double width)
{
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    // The stroker makes a knob of a smooth join that crosses the direction of the x axis, which our
    // level lines do; no line of ours lies at this angle.
    QTransform turn;
    turn.rotate(11);
    return turn.inverted().map(stroker.createStroke(turn.map(path)));
}

QPainterPath dotsOn(const QPainterPath& path, double diameter)
{
    QPainterPath dots;
    for (int i = 0; i < path.elementCount(); ++i)
        dots.addEllipse(QPointF(path.elementAt(i)), diameter / 2, diameter / 2);
    return dots;
}

QPainterPath areaOf(const Step& step, double stroke)
{
    const auto path = QTransform::fromScale(detail, detail).map(pathOf(step.data));
    const auto width = detail
        * (step.width > 0        ? step.width
                : step.width < 0 ? -step.width * stroke
                                 : stroke);
    switch (step.ink) {
    case Ink::fill:
        return path;
    case Ink::dots:
    case Ink::clearDots:
        return dotsOn(path, width);
    case Ink::stroke:
    case Ink::clearStroke:
        return strokeOf(path, width);
    }
    return path;
}

QPainterPath outlineOf(const Drawing& drawing, double stroke)
{
    auto outline = drawing.symbol == Symbol::seal ? sealShape() : QPainterPath();
    for (const auto& step : drawing.steps) {
        const auto area = areaOf(step, stroke);
        if (step.ink == Ink::clearStroke || step.ink == Ink::clearDots)
            outline = outline.subtracted(area);
        else
            outline = outline.isEmpty() ? area : outline.united(area);
    }
    QTransform toGrid;
    toGrid.translate(gridSide / 2, gridSide / 2);
    toGrid.rotate(drawing.turnDegrees);
    toGrid.translate(-gridSide / 2, -gridSide / 2);
    toGrid.scale(1 / detail, 1 / detail);
    return toGrid.map(outline);
}

} // namespace

const QPainterPath& symbolOutline(Symbol symbol, double stroke)
{
    static std::map<std::pair<Symbol, double>, QPainterPath> outlines;
    auto& outline = outlines[{ symbol, stroke }];
    if (outline.isEmpty()) {
        const auto* drawing = std::find_if(std::begin(drawings), std::end(drawings),
            [symbol](const Drawing& each) { return each.symbol == symbol; });
        outline = outlineOf(*drawing, stroke);
    }
    return outline;
}

void paintSymbol(
    QPainter& painter, Symbol symbol, const QRectF& box, const QColor& color, double stroke)
{
    const auto side = std::min(box.width(), box.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(box.center() - QPointF(side / 2, side / 2));
    painter.scale(side / gridSide, side / gridSide);
    painter.fillPath(symbolOutline(symbol, stroke), color);
    painter.restore();
}

} // namespace platform
