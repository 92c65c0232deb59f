#include "Directories.h"

#include <gtest/gtest.h>

#include <map>

#include <pwd.h>
#include <unistd.h>

namespace platform {
namespace {

Directories with(std::map<std::string, std::string> variables)
{
    return Directories::fromEnvironment(
        [variables = std::move(variables)](const char* name) -> std::optional<std::string> {
            const auto found = variables.find(name);
            return found != variables.end() ? std::optional(found->second) : std::nullopt;
        });
}

TEST(Directories, VariablesWinWhenAbsolute)
{
    const auto folders = with({ { "HOME", "/home/ada" }, { "XDG_DATA_HOME", "/data" },
        { "XDG_CONFIG_HOME", "/config" }, { "XDG_RUNTIME_DIR", "/run/user/7" } });
    EXPECT_EQ(folders.home, "/home/ada");
    EXPECT_EQ(folders.dataHome, "/data");
    EXPECT_EQ(folders.configHome, "/config");
    EXPECT_EQ(folders.runtimeDir, "/run/user/7");
}

TEST(Directories, RelativeAndEmptyValuesCountAsNotSet)
{
    for (const char* value : { "", "data", "./data", "~/data" }) {
        const auto folders = with({ { "HOME", "/home/ada" }, { "XDG_DATA_HOME", value },
            { "XDG_CONFIG_HOME", value }, { "XDG_RUNTIME_DIR", value } });
        EXPECT_EQ(folders.dataHome, "/home/ada/.local/share") << value;
        EXPECT_EQ(folders.configHome, "/home/ada/.config") << value;
        EXPECT_EQ(folders.runtimeDir, std::nullopt) << value;
    }
}

TEST(Directories, AskTheUserDatabaseWithoutHome)
{
    const passwd* entry = getpwuid(getuid());
    if (entry == nullptr)
        GTEST_SKIP() << "this user has no entry in the user database";
    for (const auto& folders : { with({}), with({ { "HOME", "relative" } }) }) {
        EXPECT_EQ(folders.home, entry->pw_dir);
        EXPECT_EQ(folders.dataHome, std::filesystem::path(entry->pw_dir) / ".local/share");
    }
}

} // namespace
} // namespace platform
