#include "ColorList.h"

#include "AtomicFile.h"
#include "Directories.h"
#include "JsonDocument.h"
#include "JsonWriter.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <optional>
#include <system_error>
#include <unordered_set>

#include <fcntl.h>
#include <unistd.h>

namespace platform {

namespace {

using std::filesystem::path;
using Entries = std::vector<std::pair<std::string, Color>>;

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

/// Reads one colour and its key, all members of which have to be there.
bool readEntry(JsonDocument& json, std::pair<std::string, Color>& entry)
{
    constexpr unsigned keyBit = 1U << components.size();
    unsigned seen = 0;
    const bool read = json.readObject([&](std::string_view name) {
        for (std::size_t i = 0; i < components.size(); ++i)
            if (name == components[i].member) {
                seen |= 1U << i;
                return json.readNumber(entry.second.*components[i].field);
            }
        if (name != "key")
            return json.skipValue();
        seen |= keyBit;
        return json.readString(entry.first);
    });
    return read && seen == keyBit * 2 - 1;
}

struct FileContent {
    bool editable = true;
    Entries colors;
};

/// The first colour of every key.
bool readEntries(JsonDocument& json, Entries& colors)
{
    colors.clear();
    std::unordered_set<std::string> keys;
    return json.readArray([&] {
        std::pair<std::string, Color> entry;
        if (!readEntry(json, entry))
            return false;
        if (keys.insert(entry.first).second)
            colors.push_back(std::move(entry));
        return true;
    });
}

/// What a text says, or nothing when it is not that of a list.
std::optional<FileContent> parse(std::string text)
{
    FileContent content;
    std::string name;
    bool hasName = false;
    bool hasColors = false;
    JsonDocument json(std::move(text));
    const bool read = json.readObject([&](std::string_view member) {
        if (member == "colors")
            return hasColors = readEntries(json, content.colors);
        if (member == "name")
            return hasName = json.readString(name);
        return member == "editable" ? json.readBoolean(content.editable) : json.skipValue();
    });
    if (!read || !json.readEnd() || !hasName || !hasColors)
        return std::nullopt;
    return content;
}

std::optional<FileContent> readList(const path& file)
{
    auto text = readWholeFile(file, maxFileBytes);
    return text ? parse(std::move(text).value()) : std::nullopt;
}

bool mayWrite(const path& target)
{
    const char* const text = target.empty() ? "." : target.c_str();
    return ::faccessat(AT_FDCWD, text, W_OK, AT_EACCESS) == 0;
}

/// False when the text or a number is none that a file could hold.
bool writeEntry(JsonWriter& json, const std::string& key, const Color& color)
{
    json.beginObject();
    bool written = true;
    for (const auto& component : components) {
        if (component.field == &Color::red) {
            json.member("key");
            written = written && json.string(key);
        }
        json.member(component.member);
        written = written && json.number(color.*component.field);
    }
    json.endObject();
    return written;
}

/// Why a colour cannot be written.
Error refusal(const std::string& key)
{
    if (findInvalidUtf8(key))
        return { "The name of a color is not valid text" };
    return { "The color " + key + " has a component that is not a number" };
}

Result<std::string> textOf(const ColorList& list)
{
    std::string text;
    JsonWriter json(text, JsonStyle::pretty);
    json.beginObject();
    json.member("colors");
    json.beginArray();
    for (const auto& [key, color] : list.colors()) {
        const auto converted = inSRGB(color);
        if (!converted)
            return Error { "The color " + key + " has no sRGB form" };
        json.element();
        if (!writeEntry(json, key, *converted))
            return refusal(key);
    }
    json.endArray();
    if (!list.isEditable()) {
        json.member("editable");
        json.boolean(false);
    }
    json.member("name");
    if (!json.string(list.name()))
        return Error { "The name of the color list is not valid text" };
    json.endObject();
    text += '\n';
    if (text.size() > maxFileBytes)
        return Error { "The color list is too large" };
    return text;
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

void ColorList::setColors(std::vector<std::pair<std::string, Color>> colors)
{
    colors_ = std::move(colors);
    places_.clear();
    for (std::size_t place = 0; place < colors_.size(); ++place)
        places_.emplace(colors_[place].first, place);
}

void ColorList::setColor(const Color& color, const std::string& key)
{
    const auto [place, isNew] = places_.emplace(key, colors_.size());
    if (isNew)
        colors_.emplace_back(key, color);
    else
        colors_[place->second].second = color;
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

path ColorListRegistry::defaultFolder(const Environment& environment)
{
    return Directories::fromEnvironment(environment).home / "Library" / "Colors";
}

std::vector<path> ColorListRegistry::listFiles() const
{
    std::vector<path> files;
    std::error_code ended;
    std::filesystem::directory_iterator entry(folder_, ended);
    for (; !ended && entry != std::filesystem::directory_iterator(); entry.increment(ended)) {
        const path& file = entry->path();
        std::error_code unknown;
        if (file.extension() == extension && colorListFileName(file.stem().string())
            && !entry->is_directory(unknown))
            files.push_back(file);
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<ColorList> ColorListRegistry::availableColorLists() const
{
    std::vector<ColorList> lists;
    for (const path& file : listFiles()) {
        auto content = readList(file);
        if (!content)
            continue;
        ColorList list(file.stem().string());
        list.file_ = file;
        list.setColors(std::move(content->colors));
        const path target = followSymlinks(file);
        list.editable_ = content->editable && mayWrite(target) && mayWrite(target.parent_path());
        lists.push_back(std::move(list));
    }
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
        const auto type = std::filesystem::status(target, ignored).type();
        using std::filesystem::file_type;
        if (::faccessat(AT_FDCWD, target.c_str(), R_OK, AT_EACCESS) != 0 && errno == EACCES)
            return Error { name.value() + " could not be read: " + reasonText(EACCES) };
        if (isSpelledOtherwise(target))
            return Error { "A file in " + folder_.string() + " has the name " + name.value()
                + " in other letters and was left as it is" };
        if (type != file_type::not_found && type != file_type::directory && !readList(target))
            return Error { name.value() + " in " + folder_.string()
                + " is not a color list and was left as it is" };
        if (auto made = createFolders(folder_); !made)
            return made.error();
    }
    if (auto written = writeFileAtomically(target, text.value()); !written)
        return written.error();
    return target;
}

} // namespace platform
