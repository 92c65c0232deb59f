#include "ColorList.h"

#include "AtomicFile.h"
#include "Directories.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <system_error>
#include <unistd.h>
#include <unordered_set>

namespace platform {

namespace {

using std::filesystem::path;
using Entries = std::vector<std::pair<std::string, Color>>;
using Json = rapidjson::Document::ValueType;

constexpr const char* extension = ".clr";
/// Far above any list of use, low enough that a wrong file costs nothing.
constexpr std::size_t maxFileBytes = 4'000'000;

struct Component {
    const char* member;
    double Color::*field;
};

/// In the order of the file, where the key stands between the blue and the red.
constexpr std::array components {
    Component { "alpha", &Color::alpha },
    Component { "blue", &Color::blue },
    Component { "green", &Color::green },
    Component { "red", &Color::red },
};

const Json* memberOf(const Json& object, const char* name)
{
    const auto member = object.FindMember(name);
    return member == object.MemberEnd() ? nullptr : &member->value;
}

std::optional<std::pair<std::string, Color>> readEntry(const Json& value)
{
    if (!value.IsObject())
        return std::nullopt;
    const Json* const key = memberOf(value, "key");
    if (key == nullptr || !key->IsString())
        return std::nullopt;
    Color color;
    for (const auto& component : components) {
        const Json* const number = memberOf(value, component.member);
        if (number == nullptr || !number->IsNumber())
            return std::nullopt;
        color.*component.field = number->GetDouble();
    }
    return std::pair(std::string(key->GetString(), key->GetStringLength()), color);
}

struct FileContent {
    bool editable = true;
    Entries colors;
};

/// What a text says, or nothing when it is not that of a list.
std::optional<FileContent> parse(const std::string& text)
{
    // Iterative, because a file of nothing but brackets would otherwise use up the stack.
    constexpr unsigned flags = rapidjson::kParseFullPrecisionFlag
        | rapidjson::kParseValidateEncodingFlag | rapidjson::kParseIterativeFlag;
    rapidjson::Document document;
    document.Parse<flags>(text.data(), text.size());
    if (document.HasParseError() || !document.IsObject())
        return std::nullopt;
    const Json* const name = memberOf(document, "name");
    const Json* const colors = memberOf(document, "colors");
    const Json* const editable = memberOf(document, "editable");
    if (name == nullptr || !name->IsString() || colors == nullptr || !colors->IsArray()
        || (editable != nullptr && !editable->IsBool()))
        return std::nullopt;

    FileContent content;
    content.editable = editable == nullptr || editable->GetBool();
    std::unordered_set<std::string> keys;
    for (const auto& value : colors->GetArray()) {
        auto entry = readEntry(value);
        if (!entry)
            return std::nullopt;
        if (keys.insert(entry->first).second)
            content.colors.push_back(std::move(*entry));
    }
    return content;
}

std::optional<FileContent> readList(const path& file)
{
    const auto text = readWholeFile(file, maxFileBytes);
    return text ? parse(text.value()) : std::nullopt;
}

bool mayWrite(const path& target)
{
    const char* const text = target.empty() ? "." : target.c_str();
    return ::faccessat(AT_FDCWD, text, W_OK, AT_EACCESS) == 0;
}

using Writer = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

void writeText(Writer& writer, const std::string& text)
{
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

void writeEntry(Writer& writer, const std::string& key, const Color& color)
{
    writer.StartObject();
    for (const auto& component : components) {
        if (component.field == &Color::red) {
            writer.Key("key");
            writeText(writer, key);
        }
        writer.Key(component.member);
        writer.Double(color.*component.field);
    }
    writer.EndObject();
}

std::optional<Error> refusal(const std::string& key, const Color& color)
{
    if (findInvalidUtf8(key))
        return Error { "The name of a color is not valid text" };
    for (const auto& component : components)
        if (!std::isfinite(color.*component.field))
            return Error { "The color " + key + " has a component that is not a number" };
    return std::nullopt;
}

Result<std::string> textOf(const ColorList& list)
{
    if (findInvalidUtf8(list.name()))
        return Error { "The name of the color list is not valid text" };
    rapidjson::StringBuffer buffer;
    Writer writer(buffer);
    writer.SetIndent(' ', 2);
    writer.StartObject();
    writer.Key("colors");
    writer.StartArray();
    for (const auto& [key, color] : list.colors()) {
        const auto converted = inSRGB(color);
        if (!converted)
            return Error { "The color " + key + " has no sRGB form" };
        if (auto error = refusal(key, *converted))
            return *error;
        writeEntry(writer, key, *converted);
    }
    writer.EndArray();
    if (!list.isEditable()) {
        writer.Key("editable");
        writer.Bool(false);
    }
    writer.Key("name");
    writeText(writer, list.name());
    writer.EndObject();
    std::string text(buffer.GetString(), buffer.GetSize());
    text += '\n';
    if (text.size() > maxFileBytes)
        return Error { "The color list is too large" };
    return text;
}

/// Whether something other than a file is at `file`; a rename would replace even a device.
bool isOccupied(const path& file)
{
    std::error_code ignored;
    const auto type = std::filesystem::status(file, ignored).type();
    using std::filesystem::file_type;
    return type != file_type::regular && type != file_type::not_found && type != file_type::none
        && type != file_type::directory;
}

} // namespace

ColorList::ColorList(std::string name)
    : name_(std::move(name))
{
}

std::vector<std::string> ColorList::allKeys() const
{
    std::vector<std::string> keys;
    keys.reserve(colors_.size());
    for (const auto& entry : colors_)
        keys.push_back(entry.first);
    return keys;
}

void ColorList::removeColorWithKey(const std::string& key)
{
    const auto found = std::find_if(
        colors_.begin(), colors_.end(), [&](const auto& entry) { return entry.first == key; });
    if (found != colors_.end())
        colors_.erase(found);
}

void ColorList::setColor(const Color& color, const std::string& key)
{
    const auto found = std::find_if(
        colors_.begin(), colors_.end(), [&](const auto& entry) { return entry.first == key; });
    if (found != colors_.end())
        found->second = color;
    else
        colors_.emplace_back(key, color);
}

Result<std::string> colorListFileName(const std::string& name)
{
    // Leaves room in a file name for the extension and for the temporary file's own ends.
    constexpr std::size_t maxBytes = 200;
    if (name.size() > maxBytes)
        return Error { "The name of the color list is too long for a file" };
    if (findInvalidUtf8(name))
        return Error { "The name of the color list is not valid text" };
    if (name.empty() || name.front() == '.' || name.find('/') != std::string::npos
        || name.find('\0') != std::string::npos)
        return Error { "A color list cannot be saved under the name \"" + name + "\"" };
    return name + extension;
}

ColorListRegistry::ColorListRegistry(path folder)
    : folder_(std::move(folder))
{
}

path ColorListRegistry::defaultFolder()
{
    return Directories::fromEnvironment().home / "Library" / "Colors";
}

std::vector<ColorList> ColorListRegistry::availableColorLists() const
{
    std::vector<ColorList> lists;
    std::error_code ended;
    std::filesystem::directory_iterator entry(folder_, ended);
    for (; !ended && entry != std::filesystem::directory_iterator(); entry.increment(ended)) {
        const path& file = entry->path();
        const std::string name = file.stem().string();
        if (file.extension() != extension || !colorListFileName(name))
            continue;
        auto content = readList(file);
        if (!content)
            continue;
        ColorList list(name);
        list.file_ = file;
        list.colors_ = std::move(content->colors);
        const path target = followSymlinks(file);
        list.editable_ = content->editable && mayWrite(target) && mayWrite(target.parent_path());
        lists.push_back(std::move(list));
    }
    std::sort(lists.begin(), lists.end(),
        [](const auto& a, const auto& b) { return a.file().native() < b.file().native(); });
    return lists;
}

Result<path> ColorListRegistry::write(const ColorList& list, const path& file) const
{
    const auto text = textOf(list);
    if (!text)
        return text.error();
    path target = file;
    if (file.empty()) {
        const auto name = colorListFileName(list.name());
        if (!name)
            return name.error();
        target = folder_ / name.value();
        std::error_code ignored;
        const auto type = std::filesystem::symlink_status(target, ignored).type();
        using std::filesystem::file_type;
        if (type != file_type::not_found && type != file_type::directory && !readList(target))
            return Error { name.value() + " in " + folder_.string()
                + " is not a color list and was left as it is" };
        if (auto made = createFolders(folder_); !made)
            return made.error();
    }
    if (isOccupied(target))
        return Error { target.filename().string()
            + " could not be written: it is not a regular file" };
    if (auto written = writeFileAtomically(target, text.value()); !written)
        return written.error();
    return target;
}

} // namespace platform
