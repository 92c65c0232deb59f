#include "Directories.h"

#include <cstdlib>

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
    const passwd* const entry = ::getpwuid(::getuid());
    const path home(entry != nullptr ? entry->pw_dir : "");
    return home.is_absolute() ? std::optional(home) : std::nullopt;
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
    const auto base = [&](const char* variable, const char* inHome) {
        const auto set = absoluteVariable(environment, variable);
        return set || !home ? set : *home / inHome;
    };
    return {
        .home = home.value_or("/"),
        .dataHome = base("XDG_DATA_HOME", ".local/share"),
        .configHome = base("XDG_CONFIG_HOME", ".config"),
        .runtimeDir = absoluteVariable(environment, "XDG_RUNTIME_DIR"),
    };
}

} // namespace platform
