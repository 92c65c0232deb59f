#include "Directories.h"

#include <cstdlib>
#include <vector>

#include <pwd.h>
#include <unistd.h>

namespace platform {

namespace {

using std::filesystem::path;

std::optional<path> absoluteVariable(const Environment& environment, const char* name)
{
    const auto value = environment(name);
    if (!value || !path(*value).is_absolute())
        return std::nullopt;
    return path(*value);
}

std::optional<path> homeInUserDatabase()
{
    constexpr std::size_t roomForOneEntry = 16384;
    std::vector<char> buffer(roomForOneEntry);
    passwd entry {};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || found == nullptr)
        return std::nullopt;
    const path home(entry.pw_dir);
    return home.is_absolute() ? std::optional(home) : std::nullopt;
}

std::optional<path> inFolder(const std::optional<path>& folder, const char* relative)
{
    return folder ? std::optional(*folder / relative) : std::nullopt;
}

std::optional<path> either(std::optional<path> first, std::optional<path> second)
{
    return first ? std::move(first) : std::move(second);
}

} // namespace

Environment processEnvironment()
{
    return [](const char* name) -> std::optional<std::string> {
        const char* value = std::getenv(name);
        return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
    };
}

Directories Directories::fromEnvironment(const Environment& environment)
{
    auto home = absoluteVariable(environment, "HOME");
    if (!home)
        home = homeInUserDatabase();
    return {
        .home = home.value_or("/"),
        .dataHome
        = either(absoluteVariable(environment, "XDG_DATA_HOME"), inFolder(home, ".local/share")),
        .configHome
        = either(absoluteVariable(environment, "XDG_CONFIG_HOME"), inFolder(home, ".config")),
        .runtimeDir = absoluteVariable(environment, "XDG_RUNTIME_DIR"),
    };
}

} // namespace platform
