#include "PathData.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

namespace platform {

namespace {

/// An elliptical arc by its end points, as path data give it.
struct Arc {
    double radiusX;
    double radiusY;
    double tiltDegrees;
    bool large;
    bool clockwise;
    QPointF to;
};

double angleOf(QPointF vector)
{
    return std::atan2(vector.y(), vector.x());
}

/// Adds the arc as cubics of at most a quarter turn. The change from end points to a centre follows
/// the implementation notes of SVG 1.1, F.6.5.
void addArc(QPainterPath& path, const Arc& arc)
{
    const auto from = path.currentPosition();
    auto rx = std::abs(arc.radiusX);
    auto ry = std::abs(arc.radiusY);
    if (rx == 0 || ry == 0 || from == arc.to) {
        path.lineTo(arc.to);
        return;
    }
    QTransform untilt;
    untilt.rotate(-arc.tiltDegrees);
    const auto half = untilt.map((from - arc.to) / 2);
    const auto excess = half.x() * half.x() / (rx * rx) + half.y() * half.y() / (ry * ry);
    if (excess > 1) {
        rx *= std::sqrt(excess);
        ry *= std::sqrt(excess);
    }
    const auto product = rx * rx * ry * ry;
    const auto part = rx * rx * half.y() * half.y() + ry * ry * half.x() * half.x();
    const auto factor
        = std::sqrt(std::max(0.0, (product - part) / part)) * (arc.large == arc.clockwise ? -1 : 1);
    const QPointF centre(factor * rx * half.y() / ry, -factor * ry * half.x() / rx);
    const auto onUnit = [&](QPointF p) { return QPointF(p.x() / rx, p.y() / ry); };
    const auto start = angleOf(onUnit(half - centre));
    auto sweep = angleOf(onUnit(-half - centre)) - start;
    constexpr auto fullTurn = 2 * std::numbers::pi;
    if (arc.clockwise && sweep < 0)
        sweep += fullTurn;
    if (!arc.clockwise && sweep > 0)
        sweep -= fullTurn;

    auto toPage = untilt.inverted();
    const auto middle = (from + arc.to) / 2;
    const auto place
        = [&](double x, double y) { return toPage.map(QPointF(x * rx, y * ry) + centre) + middle; };
    const auto pieces = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / (fullTurn / 4))));
    const auto step = sweep / pieces;
    const auto handle = 4.0 / 3 * std::tan(step / 4);
    for (int piece = 0; piece < pieces; ++piece) {
        const auto a = start + piece * step;
        const auto b = a + step;
        const auto end = piece + 1 == pieces ? arc.to : place(std::cos(b), std::sin(b));
        path.cubicTo(place(std::cos(a) - handle * std::sin(a), std::sin(a) + handle * std::cos(a)),
            place(std::cos(b) + handle * std::sin(b), std::sin(b) - handle * std::cos(b)), end);
    }
}

class Reader {
public:
    explicit Reader(std::string_view data)
        : rest_(data)
    {
    }

    std::optional<QPainterPath> read()
    {
        QPainterPath path;
        skipSeparators();
        while (!rest_.empty()) {
            const auto command = rest_.front();
            rest_.remove_prefix(1);
            if ((path.elementCount() == 0 && command != 'M') || !readCommand(command, path))
                return std::nullopt;
        }
        return path.elementCount() == 0 ? std::nullopt : std::optional(path);
    }

private:
    void skipSeparators()
    {
        const auto end = rest_.find_first_not_of(" ,\n\t");
        rest_.remove_prefix(std::min(end, rest_.size()));
    }

    [[nodiscard]] bool atNumber() const
    {
        constexpr std::string_view numberStart = "0123456789.-";
        return !rest_.empty() && numberStart.find(rest_.front()) != std::string_view::npos;
    }

    template <std::size_t N> bool readNumbers(std::array<double, N>& numbers)
    {
        for (auto& number : numbers) {
            skipSeparators();
            const auto* end = rest_.data() + rest_.size();
            const auto [next, error]
                = std::from_chars(rest_.data(), end, number, std::chars_format::fixed);
            if (error != std::errc {})
                return false;
            rest_.remove_prefix(static_cast<std::size_t>(next - rest_.data()));
        }
        skipSeparators();
        return true;
    }

    /// Hands over groups of N numbers as long as there are numbers; at least one group.
    template <std::size_t N, typename Use> bool forEachGroup(Use use)
    {
        skipSeparators();
        do {
            std::array<double, N> numbers {};
            if (!readNumbers(numbers))
                return false;
            use(numbers);
        } while (atNumber());
        return true;
    }

    bool readCommand(char command, QPainterPath& path)
    {
        const auto from = [&path] { return path.currentPosition(); };
        switch (command) {
        case 'M': {
            auto first = true;
            return forEachGroup<2>([&](const auto& n) {
                first ? path.moveTo(n[0], n[1]) : path.lineTo(n[0], n[1]);
                first = false;
            });
        }
        case 'L':
            return forEachGroup<2>([&](const auto& n) { path.lineTo(n[0], n[1]); });
        case 'H':
            return forEachGroup<1>([&](const auto& n) { path.lineTo(n[0], from().y()); });
        case 'V':
            return forEachGroup<1>([&](const auto& n) { path.lineTo(from().x(), n[0]); });
        case 'C':
            return forEachGroup<6>(
                [&](const auto& n) { path.cubicTo(n[0], n[1], n[2], n[3], n[4], n[5]); });
        case 'A':
            return forEachGroup<7>([&](const auto& n) {
                addArc(path, { n[0], n[1], n[2], n[3] != 0, n[4] != 0, { n[5], n[6] } });
            });
        case 'Z':
            path.closeSubpath();
            skipSeparators();
            return true;
        default:
            return false;
        }
    }

    std::string_view rest_;
};

} // namespace

std::optional<QPainterPath> parsePathData(std::string_view data)
{
    return Reader(data).read();
}

} // namespace platform
