#include "PaletteModelsJson.h"

#include "JsonDocument.h"

#include <optional>
#include <tuple>

namespace tintwell {

namespace {

using platform::JsonDocument;
using platform::JsonWriter;
using platform::Timestamp;
using platform::Uuid;

template <typename Value> constexpr bool isOptional = false;
template <typename Value> constexpr bool isOptional<std::optional<Value>> = true;

template <typename Record, typename Value> struct Member {
    static constexpr bool isRequired = !isOptional<Value>;
    std::string_view name;
    Value Record::*field;
};
template <typename Record, typename Value>
Member(std::string_view, Value Record::*) -> Member<Record, Value>;

// The members of each record in ascending order of their names, which is the order of the file.
template <typename Record> constexpr auto membersOf = nullptr;

template <>
constexpr auto membersOf<RGBAColor> = std::tuple {
    Member { "alpha", &RGBAColor::alpha },
    Member { "blue", &RGBAColor::blue },
    Member { "green", &RGBAColor::green },
    Member { "red", &RGBAColor::red },
};

template <>
constexpr auto membersOf<NamedColor> = std::tuple {
    Member { "color", &NamedColor::color },
    Member { "detail", &NamedColor::detail },
    Member { "id", &NamedColor::id },
    Member { "name", &NamedColor::name },
};

template <>
constexpr auto membersOf<PaletteSection> = std::tuple {
    Member { "colors", &PaletteSection::colors },
    Member { "id", &PaletteSection::id },
    Member { "subtitle", &PaletteSection::subtitle },
    Member { "title", &PaletteSection::title },
};

template <>
constexpr auto membersOf<ThemePalette> = std::tuple {
    Member { "appearance", &ThemePalette::appearance },
    Member { "colors", &ThemePalette::colors },
};

template <>
constexpr auto membersOf<GeneratedPalette> = std::tuple {
    Member { "darkTheme", &GeneratedPalette::darkTheme },
    Member { "harmonySections", &GeneratedPalette::harmonySections },
    Member { "lightTheme", &GeneratedPalette::lightTheme },
    Member { "monochromatic", &GeneratedPalette::monochromatic },
    Member { "source", &GeneratedPalette::source },
    Member { "sourceName", &GeneratedPalette::sourceName },
    Member { "tonal", &GeneratedPalette::tonal },
};

template <>
constexpr auto membersOf<SavedPalette> = std::tuple {
    Member { "colors", &SavedPalette::colors },
    Member { "createdAt", &SavedPalette::createdAt },
    Member { "id", &SavedPalette::id },
    Member { "name", &SavedPalette::name },
    Member { "source", &SavedPalette::source },
};

/// Calls `visit(member)` for each member of a record, in the order of the file.
template <typename Record, typename Visit> void forEachMember(Visit visit)
{
    std::apply([&](const auto&... member) { (visit(member), ...); }, membersOf<Record>);
}

bool write(JsonWriter& json, double number)
{
    return json.number(number);
}

bool write(JsonWriter& json, const std::string& text)
{
    return json.string(text);
}

bool write(JsonWriter& json, const std::optional<std::string>& text)
{
    return json.string(*text);
}

bool write(JsonWriter& json, const Uuid& uuid)
{
    return json.string(uuid.text());
}

bool write(JsonWriter& json, Timestamp time)
{
    return json.string(platform::formatIso8601(time));
}

bool write(JsonWriter& json, Appearance appearance)
{
    return json.string(rawValue(appearance));
}

template <typename Record> bool write(JsonWriter& json, const Record& record);

template <typename Element> bool write(JsonWriter& json, const std::vector<Element>& list)
{
    json.beginArray();
    for (std::size_t index = 0; index < list.size(); ++index) {
        json.element();
        if (!write(json, list[index]))
            return json.place().inElement(index + 1);
    }
    json.endArray();
    return true;
}

template <typename Record, typename Value>
bool writeMember(JsonWriter& json, const Record& record, const Member<Record, Value>& member)
{
    const Value& value = record.*member.field;
    if constexpr (isOptional<Value>) {
        if (!value)
            return true;
    }
    json.member(member.name);
    return write(json, value) || json.place().inMember(member.name);
}

template <typename Record> bool write(JsonWriter& json, const Record& record)
{
    json.beginObject();
    bool isComplete = true;
    forEachMember<Record>(
        [&](const auto& member) { isComplete = isComplete && writeMember(json, record, member); });
    json.endObject();
    return isComplete;
}

bool read(JsonDocument& json, double& number)
{
    return json.readNumber(number);
}

bool read(JsonDocument& json, std::string& text)
{
    return json.readString(text);
}

bool read(JsonDocument& json, std::optional<std::string>& text)
{
    text.reset();
    return json.readNull() || json.readString(text.emplace());
}

/// Reads a string that has to have the form that `parse` knows.
template <typename Value, typename Parse>
bool readParsed(JsonDocument& json, Value& value, Parse parse, std::string_view what)
{
    std::string text;
    if (!json.readString(text))
        return false;
    const auto parsed = parse(text);
    if (!parsed)
        return json.failExpecting(what);
    value = *parsed;
    return true;
}

bool read(JsonDocument& json, Uuid& uuid)
{
    return readParsed(
        json, uuid, Uuid::fromText, "a UUID like 0F8FAD5B-D9CB-469F-A165-70867728950E");
}

bool read(JsonDocument& json, Timestamp& time)
{
    return readParsed(json, time, platform::parseIso8601, "a date like 2026-11-22T10:00:00Z");
}

bool read(JsonDocument& json, Appearance& appearance)
{
    return readParsed(json, appearance, appearanceFromRawValue, R"("light" or "dark")");
}

template <typename Record> bool read(JsonDocument& json, Record& record);

template <typename Element> bool read(JsonDocument& json, std::vector<Element>& list)
{
    list.clear();
    return json.readArray([&] { return read(json, list.emplace_back()); });
}

/// Reads one record, member by member, and notes which ones were there.
template <typename Record> class RecordReader {
public:
    RecordReader(JsonDocument& json, Record& record)
        : json_(json)
        , record_(record)
    {
    }

    bool read()
    {
        return json_.readObject([this](std::string_view name) { return readMember(name); })
            && isComplete();
    }

private:
    bool readMember(std::string_view name)
    {
        bool isKnown = false;
        bool isRead = false;
        unsigned bit = 1;
        forEachMember<Record>([&](const auto& member) {
            if (member.name == name) {
                isKnown = true;
                isRead = tintwell::read(json_, record_.*member.field);
                seen_ |= bit;
            }
            bit <<= 1U;
        });
        return isKnown ? isRead : json_.skipValue();
    }

    bool isComplete()
    {
        bool isComplete = true;
        unsigned bit = 1;
        forEachMember<Record>([&](const auto& member) {
            if (isComplete && member.isRequired && (seen_ & bit) == 0)
                isComplete
                    = json_.fail("the member \"" + std::string(member.name) + "\" is missing");
            bit <<= 1U;
        });
        return isComplete;
    }

    JsonDocument& json_;
    Record& record_;
    unsigned seen_ = 0;
};

template <typename Record> bool read(JsonDocument& json, Record& record)
{
    return RecordReader<Record>(json, record).read();
}

} // namespace

template <typename Record>
platform::Result<void> appendJson(std::string& out, const Record& record, JsonStyle style)
{
    const auto lengthBefore = out.size();
    JsonWriter json(out, style);
    if (write(json, record))
        return {};
    out.resize(lengthBefore);
    return platform::Error { json.place().sentence() };
}

template <typename Record> platform::Result<Record> decodeJson(std::string text)
{
    JsonDocument json(std::move(text));
    Record record;
    if (!read(json, record) || !json.readEnd())
        return platform::Error { json.problem() };
    return record;
}

#define TINTWELL_JSON_RECORD(Record)                                                               \
    template platform::Result<void> appendJson(std::string&, const Record&, JsonStyle);            \
    template platform::Result<Record> decodeJson(std::string);
TINTWELL_JSON_RECORD(RGBAColor)
TINTWELL_JSON_RECORD(NamedColor)
TINTWELL_JSON_RECORD(PaletteSection)
TINTWELL_JSON_RECORD(ThemePalette)
TINTWELL_JSON_RECORD(GeneratedPalette)
TINTWELL_JSON_RECORD(SavedPalette)
TINTWELL_JSON_RECORD(std::vector<NamedColor>)
TINTWELL_JSON_RECORD(std::vector<SavedPalette>)
#undef TINTWELL_JSON_RECORD

} // namespace tintwell
