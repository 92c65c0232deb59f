#include "DesignTokens.h"

#include "JsonWriter.h"

#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tintwell {

namespace {

class TokenWriter {
public:
    explicit TokenWriter(const GeneratedPalette& palette)
        : palette_(palette)
    {
    }

    std::string write()
    {
        json_.beginObject();
        text("$schema", "https://www.designtokens.org/schemas/2025.10/format.json");
        text("$description", palette_.sourceName + ", " + palette_.source.hex());
        text("$type", "color");
        std::string open;
        for (const auto& color : palette_.allColors()) {
            const auto point = color.id.find('.');
            const auto group = point == std::string::npos ? "" : color.id.substr(0, point);
            if (group != open && !open.empty())
                json_.endObject();
            if (group != open)
                begin(group);
            open = group;
            token(color, point == std::string::npos ? color.id : color.id.substr(point + 1));
        }
        json_.endObject();
        json_.endObject();
        return text_ + "\n";
    }

private:
    void begin(std::string_view member)
    {
        json_.member(member);
        json_.beginObject();
    }

    void text(std::string_view member, std::string_view value)
    {
        json_.member(member);
        json_.string(value);
    }

    void token(const NamedColor& color, std::string_view name)
    {
        begin(name);
        text("$description", color.name);
        const bool isRole = color.id.starts_with("light.") || color.id.starts_with("dark.");
        if (const auto same = isRole ? twin(color.color) : std::nullopt)
            text("$value", "{" + *same + "}");
        else
            value(color.color);
        json_.endObject();
    }

    /// The id of the tone, or else of the source, that shows as `color`.
    [[nodiscard]] std::optional<std::string> twin(const RGBAColor& color) const
    {
        const auto shown = color.hexWithAlpha();
        for (const auto& tone : palette_.tonal.colors)
            if (tone.color.hexWithAlpha() == shown)
                return tone.id;
        return palette_.source.hexWithAlpha() == shown ? std::optional<std::string>("source")
                                                       : std::nullopt;
    }

    void value(const RGBAColor& color)
    {
        begin("$value");
        text("colorSpace", "srgb");
        json_.member("components");
        json_.beginArray();
        const auto [red, green, blue, alpha] = color.bytes();
        for (const auto byte : { red, green, blue }) {
            json_.element();
            json_.number(fraction(byte));
        }
        json_.endArray();
        json_.member("alpha");
        json_.number(fraction(alpha));
        text("hex", color.hex());
        json_.endObject();
    }

    /// A step of 255 in as few digits as lead back to it.
    static double fraction(std::uint8_t byte)
    {
        constexpr double tenThousandths = 10000;
        return std::round(byte / 255.0 * tenThousandths) / tenThousandths;
    }

    const GeneratedPalette& palette_;
    std::string text_;
    platform::JsonWriter json_ { text_, platform::JsonStyle::pretty };
};

} // namespace

std::string designTokensText(const GeneratedPalette& palette)
{
    return TokenWriter(palette).write();
}

} // namespace tintwell
