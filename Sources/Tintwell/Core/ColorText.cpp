#include "ColorText.h"

#include "CssColorNames.h"
#include "NumberText.h"
#include "OKLCH.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tintwell {

namespace {

constexpr double fullTurn = 360;
constexpr double degreesOfRadian = 57.29577951308232;
/// What 100 % of chroma means in oklch().
constexpr double fullChroma = 0.4;

bool isSpace(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

char lowered(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

bool isLetter(char character)
{
    return lowered(character) >= 'a' && lowered(character) <= 'z';
}

bool isWordPart(char character)
{
    return isLetter(character) || isDigit(character) || character == '-' || character == '_';
}

/// One channel or the alpha, as it is written.
struct Component {
    enum class Kind { number, percentage, angle, none };
    Kind kind = Kind::number;
    double value = 0; ///< An angle in degrees; 0 for none.
};

/// Reads a text from its front.
class Reader {
public:
    explicit Reader(std::string_view text)
        : rest_(text)
    {
    }

    [[nodiscard]] bool isAtEnd() const { return rest_.empty(); }

    /// Passes over `character` and the space before it.
    bool take(char character)
    {
        skipSpace();
        if (!rest_.starts_with(character))
            return false;
        rest_.remove_prefix(1);
        return true;
    }

    /// The letters ahead, in lower case; empty when there are none.
    std::string takeWord()
    {
        skipSpace();
        std::string word;
        for (; !rest_.empty() && isLetter(rest_.front()); rest_.remove_prefix(1))
            word += lowered(rest_.front());
        return word;
    }

    std::optional<Component> takeComponent()
    {
        skipSpace();
        Component component;
        if (!takeNumber(component.value)) {
            component.kind = Component::Kind::none;
            return takeWord() == "none" ? std::optional(component) : std::nullopt;
        }
        if (rest_.starts_with('%')) {
            rest_.remove_prefix(1);
            component.kind = Component::Kind::percentage;
        } else if (!rest_.empty() && isLetter(rest_.front())) {
            component.kind = Component::Kind::angle;
            component.value *= degreesOf(takeWord());
        }
        return std::isfinite(component.value) ? std::optional(component) : std::nullopt;
    }

private:
    void skipSpace()
    {
        while (!rest_.empty() && isSpace(rest_.front()))
            rest_.remove_prefix(1);
    }

    bool takeNumber(double& number)
    {
        auto digits = rest_;
        if (digits.starts_with('+') || digits.starts_with('-'))
            digits.remove_prefix(1);
        // The library would read "inf" and "nan" as well.
        if (digits.empty() || !(isDigit(digits.front()) || digits.front() == '.'))
            return false;
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (read.ec != std::errc {})
            return false;
        number = rest_.front() == '-' ? -number : number;
        rest_.remove_prefix(static_cast<std::size_t>(read.ptr - rest_.data()));
        return true;
    }

    /// Not a number for a word that is no unit.
    static double degreesOf(std::string_view unit)
    {
        if (unit == "deg")
            return 1;
        if (unit == "turn")
            return fullTurn;
        if (unit == "grad")
            return fullTurn / 400;
        return unit == "rad" ? degreesOfRadian : std::nan("");
    }

    std::string_view rest_;
};

/// What stands between the parentheses of a colour function.
struct Arguments {
    std::array<Component, 3> channels {};
    double alpha = 1;
    bool hasCommas = false;

    [[nodiscard]] bool areAll(Component::Kind kind) const
    {
        return std::all_of(channels.begin(), channels.end(),
            [kind](const Component& channel) { return channel.kind == kind; });
    }
};

/// The alpha behind `separator`, which may be absent.
std::optional<double> readAlpha(Reader& reader, char separator)
{
    if (!reader.take(separator))
        return 1;
    const auto alpha = reader.takeComponent();
    if (!alpha || alpha->kind == Component::Kind::angle)
        return std::nullopt;
    return alpha->kind == Component::Kind::percentage ? alpha->value / 100 : alpha->value;
}

std::optional<Arguments> readArguments(Reader& reader)
{
    Arguments arguments;
    for (std::size_t at = 0; at < arguments.channels.size(); ++at) {
        if (at == 1)
            arguments.hasCommas = reader.take(',');
        if (at == 2 && reader.take(',') != arguments.hasCommas)
            return std::nullopt;
        const auto channel = reader.takeComponent();
        if (!channel)
            return std::nullopt;
        arguments.channels[at] = *channel;
    }
    const auto alpha = readAlpha(reader, arguments.hasCommas ? ',' : '/');
    if (!alpha || !reader.take(')') || !reader.isAtEnd())
        return std::nullopt;
    arguments.alpha = *alpha;
    return arguments;
}

/// A channel whose 100 % is `full`; nothing for an angle.
std::optional<double> amount(const Component& channel, double full)
{
    if (channel.kind == Component::Kind::angle)
        return std::nullopt;
    return channel.kind == Component::Kind::percentage ? channel.value / 100 * full : channel.value;
}

std::optional<double> hueDegrees(const Component& channel)
{
    if (channel.kind == Component::Kind::percentage)
        return std::nullopt;
    return channel.value;
}

std::optional<RGBAColor> rgbColor(const Arguments& arguments)
{
    constexpr double full = 255;
    const bool isLegacy = arguments.areAll(Component::Kind::number)
        || arguments.areAll(Component::Kind::percentage);
    const auto red = amount(arguments.channels[0], full);
    const auto green = amount(arguments.channels[1], full);
    const auto blue = amount(arguments.channels[2], full);
    if (!red || !green || !blue || (arguments.hasCommas && !isLegacy))
        return std::nullopt;
    return RGBAColor(*red / full, *green / full, *blue / full, arguments.alpha);
}

RGBAColor fromHSL(double hue, double saturation, double lightness, double alpha)
{
    const double reach = saturation * std::min(lightness, 1 - lightness);
    const auto component = [&](double offset) {
        const double turned = std::fmod(hue / 30 + offset, 12);
        const double place = turned < 0 ? turned + 12 : turned;
        return lightness - reach * std::clamp(std::min(place - 3, 9 - place), -1.0, 1.0);
    };
    return { component(0), component(8), component(4), alpha };
}

std::optional<RGBAColor> hslColor(const Arguments& arguments)
{
    const auto& [first, second, third] = arguments.channels;
    const auto hue = hueDegrees(first);
    const auto saturation = amount(second, 100);
    const auto lightness = amount(third, 100);
    const bool isLegacy = first.kind != Component::Kind::none
        && second.kind == Component::Kind::percentage && third.kind == Component::Kind::percentage;
    if (!hue || !saturation || !lightness || (arguments.hasCommas && !isLegacy))
        return std::nullopt;
    return fromHSL(*hue, std::clamp(*saturation / 100, 0.0, 1.0),
        std::clamp(*lightness / 100, 0.0, 1.0), arguments.alpha);
}

std::optional<RGBAColor> oklchColor(const Arguments& arguments)
{
    const auto lightness = amount(arguments.channels[0], 1);
    const auto chroma = amount(arguments.channels[1], fullChroma);
    const auto hue = hueDegrees(arguments.channels[2]);
    if (!lightness || !chroma || !hue || arguments.hasCommas)
        return std::nullopt;
    return OKLCH(*lightness, *chroma, *hue).toSRGB(std::clamp(arguments.alpha, 0.0, 1.0));
}

/// "#abc" and "#abcd", each digit standing for two.
std::optional<RGBAColor> shortHexColor(std::string_view text)
{
    if (!text.starts_with('#') || (text.size() != 4 && text.size() != 5))
        return std::nullopt;
    std::string digits;
    for (const char digit : text.substr(1))
        digits.append(2, digit);
    return RGBAColor::fromHex(digits);
}

/// A colour function or a name.
std::optional<RGBAColor> wordColor(std::string_view text)
{
    Reader reader(text);
    auto word = reader.takeWord();
    if (reader.isAtEnd())
        return RGBAColor::fromHex(cssColorNamed(word));
    const auto arguments = reader.take('(') ? readArguments(reader) : std::nullopt;
    if (!arguments)
        return std::nullopt;
    if (word == "rgb" || word == "rgba")
        return rgbColor(*arguments);
    if (word == "hsl" || word == "hsla")
        return hslColor(*arguments);
    return word == "oklch" ? oklchColor(*arguments) : std::nullopt;
}

/// Without what a style sheet, a script or a list has around a value.
std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view around = " \t\r\n\f\v\"'`;,";
    const auto first = text.find_first_not_of(around);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(around) + 1 - first);
}

/// The value of a declaration such as "color: red !important"; any other text as it is.
std::string_view declared(std::string_view text)
{
    const auto colon = text.find(':');
    if (colon == std::string_view::npos)
        return text;
    auto name = trimmed(text.substr(0, colon));
    if (name.starts_with('$') || name.starts_with('@'))
        name.remove_prefix(1);
    if (name.empty() || !std::all_of(name.begin(), name.end(), isWordPart))
        return text;
    constexpr std::string_view important = "!important";
    auto value = trimmed(text.substr(colon + 1));
    if (value.ends_with(important))
        value.remove_suffix(important.size());
    return trimmed(value);
}

/// The colour that the hex text stands for: text with few digits cannot be truer than that.
RGBAColor inSteps(const RGBAColor& color)
{
    const auto [red, green, blue, alpha] = color.bytes();
    return { red / 255.0, green / 255.0, blue / 255.0, alpha / 255.0 };
}

/// `value` with at most that many decimals.
std::string shortNumber(double value, int decimals)
{
    auto text = fixedPoint(value, decimals);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.ends_with('.'))
            text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

/// " / 0.5", with as many decimals as tell one step of 255 from the next; nothing when opaque.
std::string alphaText(const RGBAColor& color)
{
    const auto byte = color.bytes()[3];
    if (byte == 255)
        return "";
    const double alpha = byte / 255.0;
    const bool twoAreEnough = roundedHalfAway(std::round(alpha * 100) / 100 * 255) == byte;
    return " / " + shortNumber(alpha, twoAreEnough ? 2 : 3);
}

} // namespace

std::optional<RGBAColor> colorFromText(std::string_view text)
{
    if (const auto color = RGBAColor::fromHex(text))
        return color;
    // The byte-order mark that some editors put before a file's first line.
    if (text.starts_with("\uFEFF"))
        text.remove_prefix(std::string_view("\uFEFF").size());
    const auto value = declared(trimmed(text));
    if (const auto color = RGBAColor::fromHex(value))
        return color;
    if (const auto color = shortHexColor(value))
        return color;
    return wordColor(value);
}

std::string rgbText(const RGBAColor& color)
{
    const auto [red, green, blue, alpha] = color.bytes();
    return numbered("rgb(", red) + numbered(" ", green) + numbered(" ", blue) + alphaText(color)
        + ")";
}

std::string hslText(const RGBAColor& color)
{
    const auto [red, green, blue, alpha] = inSteps(color);
    const double most = std::max({ red, green, blue });
    const double least = std::min({ red, green, blue });
    const double range = most - least;
    const double lightness = (most + least) / 2;
    double hue = 0;
    double saturation = 0;
    if (range > 0) {
        saturation = (most - lightness) / std::min(lightness, 1 - lightness);
        if (most == red)
            hue = (green - blue) / range + (green < blue ? 6 : 0);
        else
            hue = most == green ? (blue - red) / range + 2 : (red - green) / range + 4;
    }
    return "hsl(" + shortNumber(hue * 60, 1) + " " + shortNumber(saturation * 100, 1) + "% "
        + shortNumber(lightness * 100, 1) + "%" + alphaText(color) + ")";
}

std::string oklchText(const RGBAColor& color)
{
    const OKLCH polar(inSteps(color));
    constexpr int mostMore = 4;
    std::string text;
    // A few colours at the rim of sRGB lose chroma when they are rounded out of it.
    for (int more = 0; more <= mostMore; ++more) {
        text = "oklch(" + shortNumber(polar.lightness * 100, 2 + more) + "% "
            + shortNumber(polar.chroma, 4 + more) + " " + shortNumber(polar.hue, 2 + more)
            + alphaText(color) + ")";
        if (const auto again = colorFromText(text); again && again->bytes() == color.bytes())
            break;
    }
    return text;
}

std::string customPropertyName(std::string_view id)
{
    std::string text = "--tintwell-";
    for (const char character : id)
        text += isLetter(character) || isDigit(character) ? lowered(character) : '-';
    return text;
}

std::string customProperty(std::string_view id, const RGBAColor& color)
{
    return customPropertyName(id) + ": " + color.hexWithAlpha() + ";";
}

} // namespace tintwell
