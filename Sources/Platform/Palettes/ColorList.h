// Named colour lists and the registry of folders in which the user keeps them.
#pragma once

#include "Color.h"
#include "Directories.h"
#include "Result.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace platform {

/// A named, ordered list of colours under unique keys (".clr" file).
class ColorList {
public:
    explicit ColorList(std::string name);

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] bool isEditable() const { return editable_; }
    /// Where the list was read from; empty for one that was never saved.
    [[nodiscard]] const std::filesystem::path& file() const { return file_; }

    [[nodiscard]] std::vector<std::string> allKeys() const;
    [[nodiscard]] const std::vector<std::pair<std::string, Color>>& colors() const
    {
        return colors_;
    }
    /// Adds `color` at the end, or replaces the colour of a key that is there.
    void setColor(const Color& color, const std::string& key);

private:
    friend class ColorListRegistry;
    void setColors(std::vector<std::pair<std::string, Color>> colors);

    std::string name_;
    bool editable_ = true;
    std::filesystem::path file_;
    std::vector<std::pair<std::string, Color>> colors_;
    /// Where the color of each key stands.
    std::unordered_map<std::string, std::size_t> places_;
};

/// "<name>.clr". Fails for a name that cannot be a file name: empty, with a slash or a NUL, hidden
/// (a dot first), not UTF-8, or too long.
[[nodiscard]] Result<std::string> colorListFileName(const std::string& name);

/// The lists of one folder. A list goes by the name of its file, so that every name is there once
/// and a renamed file is a renamed list. Files that are no lists are passed over and never touched.
class ColorListRegistry {
public:
    explicit ColorListRegistry(std::filesystem::path folder = defaultFolder(processEnvironment()));

    /// "Library/Colors" in the user's home folder.
    [[nodiscard]] static std::filesystem::path defaultFolder(const Environment& environment);

    [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }

    /// The folder's ".clr" files by name, whatever is in them.
    [[nodiscard]] std::vector<std::filesystem::path> listFiles() const;

    /// Every list of the folder by file name; unreadable and foreign files are left out.
    [[nodiscard]] std::vector<ColorList> availableColorLists() const;

    /// Writes `list` atomically to `file`, or to `<name>.clr` in the registry's folder (made when
    /// missing) when `file` is empty; returns the file. In the registry's folder only a list is
    /// replaced; a file that is none fails the write and stays as it is.
    Result<std::filesystem::path> write(
        const ColorList& list, const std::filesystem::path& file = {}) const;

private:
    std::filesystem::path folder_;
};

} // namespace platform
