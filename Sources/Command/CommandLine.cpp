#include "CommandLine.h"

#include "ColorText.h"
#include "Spelling.h"
#include "Terminal.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include <unistd.h>

namespace tintwell {

namespace {

constexpr auto version = "tintwell-cli " TINTWELL_VERSION;
constexpr std::size_t shortestIdPrefix = 4;
constexpr auto idHelp = "At least the first four characters of a palette's id";

constexpr auto examples = R"(Examples:
  tintwell-cli palette '#6E56CF'             look at a color system
  tintwell-cli export 6E56CF --format css    custom properties for a style sheet
  tintwell-cli contrast navy 'hsl(50 90% 80%)'
                                             WCAG contrast of two colors
  tintwell-cli save 6E56CF                   keep a palette in the library
  tintwell-cli install 6E56CF                install it as a color list

COLOR is RRGGBB or RRGGBBAA with or without #, #RGB, #RGBA, rgb(), hsl(),
oklch() or a CSS name; - reads it from standard input. Quote colors that begin
with # or have parentheses.
tintwell-cli help COMMAND tells more, man tintwell-cli everything.
)";

struct CommandText {
    Command command;
    const char* name;
    const char* description;
    const char* examples;
};

constexpr std::array commandTexts {
    CommandText { Command::palette, "palette", "Show the color system of COLOR (default: #6E56CF)",
        R"(Examples:
  tintwell-cli palette '#6E56CF'
  tintwell-cli palette rebeccapurple --color always | less -R
  tintwell-cli palette 6E56CF --format json
  tintwell-cli palette --format json-lines - < colors.txt
)" },
    CommandText { Command::exportColors, "export", "Print the colors of COLOR for other programs",
        R"(Examples:
  tintwell-cli export 6E56CF --format css --colors oklch > colors.css
  tintwell-cli export 'oklch(54% 0.18 288)' --out violet.gpl
  tintwell-cli export --list
)" },
    CommandText { Command::name, "name", "Name COLOR in English", R"(Examples:
  tintwell-cli name '#6E56CF'
  xclip -o | tintwell-cli name -
)" },
    CommandText { Command::contrast, "contrast", "Print the WCAG contrast of two colors",
        R"(Examples:
  tintwell-cli contrast 6E56CF white
  tintwell-cli contrast '#777' '#fff'
)" },
    CommandText { Command::savePalette, "save", "Keep the palette of COLOR", R"(Examples:
  tintwell-cli save 6E56CF
  tintwell-cli save 6E56CF --format json | jq -r .id
)" },
    CommandText { Command::listLibrary, "list", "List the saved palettes, newest first",
        R"(Examples:
  tintwell-cli list
  tintwell-cli list --format json --library team.json
)" },
    CommandText { Command::deletePalette, "delete", "Delete a saved palette", R"(Examples:
  tintwell-cli delete 0A1B2C3D
)" },
    CommandText { Command::usePalette, "use", "Show the color system of a saved palette",
        R"(Examples:
  tintwell-cli use 0A1B2C3D
  tintwell-cli use 0A1B2C3D --format json
)" },
    CommandText { Command::install, "install", "Install a palette as the color list \"Tintwell\"",
        R"(Examples:
  tintwell-cli install 6E56CF
  tintwell-cli install --id 0A1B2C3D
)" },
    CommandText { Command::listColorLists, "lists", "Show the color lists of the desktop",
        R"(Examples:
  tintwell-cli lists
)" },
    CommandText { Command::autostart, "autostart", "Start the desktop application at login",
        R"(Examples:
  tintwell-cli autostart on
  tintwell-cli autostart status
)" },
};

/// The words that an option takes, with what each stands for; the first is the default.
template <typename Value, std::size_t Count>
using Words = std::array<std::pair<const char*, Value>, Count>;

constexpr Words<PaletteFormat, 3> paletteFormats { {
    { "text", PaletteFormat::layout },
    { "json", PaletteFormat::json },
    { "json-lines", PaletteFormat::jsonLines },
} };
constexpr auto exportWords = [] {
    Words<ExportFormat, exportFormats.size()> words {};
    for (std::size_t at = 0; at < words.size(); ++at)
        words[at] = { exportFormats[at].word, exportFormats[at].format };
    return words;
}();
constexpr Words<ColorNotation, 2> colorNotations { {
    { "hex", ColorNotation::hex },
    { "oklch", ColorNotation::oklch },
} };
constexpr Words<LibraryFormat, 2> libraryFormats { {
    { "text", LibraryFormat::layout },
    { "json", LibraryFormat::json },
} };
constexpr Words<ColorChoice, 3> colorChoices { {
    { "auto", ColorChoice::automatic },
    { "always", ColorChoice::always },
    { "never", ColorChoice::never },
} };

/// An option that takes one of `words`; they and `value` outlive `command`.
template <typename Value, std::size_t Count, typename Target>
CLI::Option* addChoice(CLI::App& command, const std::string& names, const char* help,
    const Words<Value, Count>& words, Target& value)
{
    std::string all;
    for (const auto& [word, meaning] : words)
        all += (all.empty() ? "" : ", ") + std::string(word);
    const auto name = names.substr(names.find("--"));
    const auto choose = [&words, &value, all, name](const std::string& typed) {
        const auto* const found = std::find_if(
            words.begin(), words.end(), [&](const auto& word) { return typed == word.first; });
        if (found == words.end())
            throw CLI::ValidationError(name, inQuotes(typed) + " is not one of " + all);
        value = found->second;
    };
    return command.add_option_function<std::string>(
        names, choose, std::string(help) + " (default: " + words.front().first + "):\n" + all);
}

/// The commands of the program, writing what they read into one request.
class Grammar {
public:
    explicit Grammar(Request& request)
        : request_(request)
    {
        app_.set_version_flag("-V,--version", version, "Print the version and exit");
        app_.require_subcommand(0, 1);
        app_.footer(examples);
        // Narrow enough for 80 columns; the commands inherit it.
        app_.get_formatter()->column_width(25);
        addLibrary(app_);
        addColorChoice(app_);
        for (const auto& text : commandTexts)
            addOptions(text.command, add(text));
        help_ = app_.add_subcommand("help", "Print the help of COMMAND");
        help_->add_option("COMMAND", helpTopic_, "The command, or nothing for all")->type_name("");
        help_->footer("");
    }

    CLI::App& app() { return app_; }

    /// The help that was asked for by its own command.
    [[nodiscard]] std::optional<Report> help()
    {
        if (!help_->parsed())
            return std::nullopt;
        // The program's own help; `help()` would give that of the command that was chosen.
        if (helpTopic_.empty())
            return Report::printed(app_.get_formatter()->make_help(
                &app_, app_.get_name(), CLI::AppFormatMode::Normal));
        const auto topics = app_.get_subcommands(
            [this](const CLI::App* command) { return command->get_name() == helpTopic_; });
        return topics.empty() ? Report::misuse(notACommand(helpTopic_))
                              : Report::printed(topics.front()->help(app_.get_name()));
    }

    /// The sentence for a word that stands where a command should.
    [[nodiscard]] std::string notACommand(const std::string& word) const
    {
        std::vector<std::string> names(commandTexts.size());
        std::transform(commandTexts.begin(), commandTexts.end(), names.begin(),
            [](const CommandText& text) { return text.name; });
        auto meant = closestWord(word, names);
        if (meant.empty() && colorFromText(word))
            meant = "palette '" + word + "'";
        return inQuotes(word) + " is not a command"
            + (meant.empty() ? seeHelp : "; did you mean " + printable(meant) + "?");
    }

    /// The sentence for the first word that has no place.
    [[nodiscard]] std::string unexpected() const
    {
        const auto words = app_.remaining(/*recurse=*/true);
        const std::string first = words.empty() ? "" : words.front();
        const auto chosen = app_.get_subcommands();
        if (!first.starts_with('-'))
            return chosen.empty() ? notACommand(first)
                                  : inQuotes(first) + " is one word too many" + seeHelp;
        std::vector<std::string> names;
        for (const auto* option : (chosen.empty() ? &app_ : chosen.front())->get_options())
            for (const auto& name : option->get_lnames())
                names.push_back("--" + name);
        const auto meant = closestWord(first, names);
        return inQuotes(first) + " is not an option here"
            + (meant.empty() ? seeHelp : "; did you mean " + meant + "?");
    }

    static constexpr auto seeHelp = " (see tintwell-cli --help)";

private:
    CLI::App& add(const CommandText& text)
    {
        auto& added = *app_.add_subcommand(text.name, text.description);
        added.set_version_flag("-V,--version", version, "Print the version and exit");
        added.footer(text.examples);
        added.callback([this, command = text.command] { request_.command = command; });
        return added;
    }

    template <typename Text>
    static CLI::Option* addColor(CLI::App& command, const char* name, Text& color)
    {
        return command
            .add_option(name, color, std::string(colorForms) + ";\n- reads it from standard input")
            ->type_name("");
    }

    CLI::Option* addId(CLI::App& command, const char* name)
    {
        return command.add_option(name, request_.id, idHelp);
    }

    void addLibrary(CLI::App& command)
    {
        command
            .add_option(
                "-l,--library", request_.library, "The library file (default: the user's own)")
            ->type_name("FILE");
    }

    template <typename Value, std::size_t Count, typename Target>
    static void addFormat(CLI::App& command, const Words<Value, Count>& words, Target& format)
    {
        addChoice(command, "-f,--format", "Form of the output", words, format)->type_name("FORMAT");
    }

    void addColorChoice(CLI::App& command)
    {
        addChoice(command, "-c,--color", "Colors on a terminal", colorChoices, request_.colorChoice)
            ->type_name("WHEN");
    }

    void addOptions(Command command, CLI::App& added)
    {
        switch (command) {
        case Command::palette:
            addColor(added, "COLOR", request_.color);
            addFormat(added, paletteFormats, request_.paletteFormat);
            addColorChoice(added);
            added
                .add_option(
                    "-j,--jobs", request_.jobs, "Threads for json-lines of - (default: all cores)")
                ->check(CLI::Range(1U, 256U).description(""))
                ->type_name("N");
            break;
        case Command::exportColors:
            addExportOptions(added, request_.exported);
            break;
        case Command::name:
            addColor(added, "COLOR", request_.color)->required();
            break;
        case Command::contrast:
            addColor(added, "COLOR", request_.color)->required();
            addColor(added, "BACKGROUND", request_.background)->required();
            addColorChoice(added);
            break;
        case Command::savePalette:
        case Command::listLibrary:
        case Command::deletePalette:
        case Command::usePalette:
        case Command::install:
            addLibraryOptions(command, added);
            break;
        case Command::autostart:
            added.add_option("SWITCH", request_.autostart, "on, off or status")
                ->type_name("")
                ->required();
            break;
        case Command::listColorLists:
            break;
        }
    }

    void addExportOptions(CLI::App& added, ExportOrder& order)
    {
        addColor(added, "COLOR", request_.color);
        addFormat(added, exportWords, order.format);
        addChoice(added, "--colors", "Colors in style sheets", colorNotations, order.notation)
            ->type_name("FORM");
        added.add_option("-o,--out", order.file, "Write this file; its ending tells the format")
            ->type_name("FILE");
        added.add_flag("--list", order.listsFormats, "List the formats");
    }

    void addLibraryOptions(Command command, CLI::App& added)
    {
        if (command == Command::savePalette)
            addColor(added, "COLOR", request_.color)->required();
        if (command == Command::savePalette || command == Command::listLibrary)
            addFormat(added, libraryFormats, request_.libraryFormat);
        if (command == Command::deletePalette || command == Command::usePalette)
            addId(added, "ID")->type_name("")->required();
        if (command == Command::usePalette)
            addFormat(added, paletteFormats, request_.paletteFormat);
        if (command == Command::listLibrary || command == Command::usePalette)
            addColorChoice(added);
        if (command == Command::install) {
            addColor(added, "COLOR", request_.color);
            addId(added, "-i,--id")->type_name("ID");
        }
        addLibrary(added);
    }

    Request& request_;
    CLI::App app_ { "A color system from one source color.", "tintwell-cli" };
    CLI::App* help_ = nullptr;
    std::string helpTopic_;
};

/// A colour text may begin with hyphens, like any other sign around its digits. What would look
/// like an option loses them.
void unhyphenColors(std::vector<std::string>& arguments)
{
    bool isValue = false;
    for (auto& argument : arguments) {
        if (argument.starts_with('-') && !isValue && colorFromText(argument))
            argument.erase(0, argument.find_first_not_of('-'));
        constexpr std::array takeOne { "-f", "--format", "--colors", "-o", "--out", "-l",
            "--library", "-i", "--id", "-c", "--color", "-j", "--jobs" };
        isValue = std::find(takeOne.begin(), takeOne.end(), argument) != takeOne.end();
    }
}

bool usesLibrary(Command command)
{
    constexpr std::array all { Command::savePalette, Command::listLibrary, Command::deletePalette,
        Command::usePalette, Command::install };
    return std::find(all.begin(), all.end(), command) != all.end();
}

/// What the grammar itself cannot say; empty when all is well.
std::string misuseOf(const Request& request)
{
    if (request.library && !usesLibrary(request.command))
        return "--library goes with save, list, delete, use and install only";
    if (request.library && request.library->empty())
        return "--library needs the name of a file";
    std::error_code ignored;
    if (request.library
        && (!request.library->has_filename()
            || std::filesystem::is_directory(*request.library, ignored)))
        return "--library takes a file, and " + inQuotes(request.library->string())
            + " is a folder";
    if (request.id && request.id->size() < shortestIdPrefix)
        return "an id needs at least its first four characters";
    if (request.command == Command::exportColors && !request.exported.listsFormats)
        return request.color ? misuseOf(request.exported, ::isatty(STDOUT_FILENO) != 0)
                             : "COLOR is required (see tintwell-cli --help)";
    if (request.command == Command::install && request.color.has_value() == request.id.has_value())
        return "install takes either a COLOR or --id ID";
    return "";
}

} // namespace

std::variant<Request, Report> parseCommandLine(std::vector<std::string> arguments)
{
    Request request;
    Grammar grammar(request);
    unhyphenColors(arguments);
    std::reverse(arguments.begin(), arguments.end());
    try {
        grammar.app().parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        return Report::printed(grammar.app().help());
    } catch (const CLI::CallForVersion&) {
        return Report::printed(std::string(version) + "\n");
    } catch (const CLI::ExtrasError&) {
        return Report::misuse(grammar.unexpected());
    } catch (const CLI::ArgumentMismatch& error) {
        const std::string_view problem = error.what();
        return Report::misuse(printable(problem.substr(0, problem.find(':')))
            + " takes exactly one value (see tintwell-cli --help)");
    } catch (const CLI::ParseError& error) {
        return Report::misuse(printable(error.what()) + " (see tintwell-cli --help)");
    }
    if (grammar.app().get_subcommands().empty())
        return Report::printed(grammar.app().help());
    if (auto help = grammar.help())
        return std::move(*help);
    if (const auto misuse = misuseOf(request); !misuse.empty())
        return Report::misuse(misuse);
    if (request.library) {
        std::error_code failure;
        const auto whole = std::filesystem::absolute(*request.library, failure);
        request.library = failure ? *request.library : whole;
    }
    return request;
}

} // namespace tintwell
