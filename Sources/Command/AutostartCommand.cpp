#include "AutostartCommand.h"

#include "AtomicFile.h"
#include "Directories.h"
#include "Terminal.h"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace tintwell {

namespace {

constexpr std::size_t largestEntry = 1 << 20;

/// The application that was installed with this program; else the one that the session finds.
std::string application()
{
    std::error_code failure;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", failure);
    const auto beside = self.parent_path() / "tintwell";
    return !failure && std::filesystem::exists(beside, failure) ? beside.string() : "tintwell";
}

/// As the "Exec" line takes a path: in quotes, with the signs of its own taken literally.
std::string quoted(const std::string& path)
{
    std::string text = "\"";
    for (const char sign : path) {
        if (sign == '"' || sign == '`' || sign == '$' || sign == '\\')
            // Once for the quotes, and again for the value of a line.
            text += sign == '\\' ? R"(\\\)" : R"(\\)";
        else if (sign == '%')
            text += '%';
        text += sign;
    }
    return text + '"';
}

std::string entry(const std::string& program)
{
    return "[Desktop Entry]\nType=Application\nName=Tintwell\nExec=" + quoted(program)
        + " --background\nIcon=" TINTWELL_APP_ID "\nTerminal=false\n";
}

/// Desktops turn an entry off by a line in it.
bool isOn(const std::filesystem::path& file)
{
    const auto text = platform::readWholeFile(file, largestEntry);
    return text && text.value().find("\nHidden=true") == std::string::npos
        && text.value().find("\nX-GNOME-Autostart-enabled=false") == std::string::npos;
}

Report turnOn(const std::filesystem::path& file)
{
    auto written = platform::createFolders(file.parent_path());
    if (written)
        written = platform::writeFileAtomically(file, entry(application()));
    return written ? Report::printed("Tintwell starts at login\n")
                   : Report::failure("Autostart failed: " + written.error().description);
}

Report turnOff(const std::filesystem::path& file)
{
    std::error_code failure;
    std::filesystem::remove(file, failure);
    return failure ? Report::failure("Autostart failed: " + failure.message())
                   : Report::printed("Tintwell does not start at login\n");
}

} // namespace

Report changeAutostart(const std::string& change)
{
    const auto folder = platform::Directories::fromEnvironment().configHome;
    if (!folder)
        return Report::failure("there is no folder for the settings of the desktop");
    const auto file = *folder / "autostart" / TINTWELL_APP_ID ".desktop";
    if (change == "on")
        return turnOn(file);
    if (change == "off")
        return turnOff(file);
    if (change == "status")
        return Report::printed(isOn(file) ? "on\n" : "off\n");
    return Report::misuse(inQuotes(change) + " is not one of on, off, status");
}

} // namespace tintwell
