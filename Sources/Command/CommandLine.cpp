#include "CommandLine.h"

#include "Terminal.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace tintwell {

namespace {

constexpr auto version = "tintwell-cli " TINTWELL_VERSION;
constexpr auto colorHelp = "RRGGBB or RRGGBBAA, with or without #";
constexpr auto idHelp = "The first characters of a saved palette's id";

constexpr auto examples = R"(Examples:
  tintwell-cli palette '#6E56CF'             look at a color system
  tintwell-cli palette 6E56CF --format json  the same for programs
  tintwell-cli palette --format json-lines - < colors.txt
                                             one palette a line
  tintwell-cli export 6E56CF --format css    custom properties for a style sheet
  tintwell-cli contrast 6E56CF FFFFFF        WCAG contrast of two colors
  tintwell-cli save 6E56CF                   keep a palette in the library
  tintwell-cli install 6E56CF                install it as the color list "Tintwell"

Quote colors that begin with #, or leave the # away.
)";

/// The words that an option takes, with what each stands for.
template <typename Value, std::size_t Count>
using Words = std::array<std::pair<const char*, Value>, Count>;

constexpr Words<PaletteFormat, 3> paletteFormats { {
    { "text", PaletteFormat::layout },
    { "json", PaletteFormat::json },
    { "json-lines", PaletteFormat::jsonLines },
} };
constexpr Words<ExportFormat, 3> exportFormats { {
    { "json", ExportFormat::json },
    { "gpl", ExportFormat::gimp },
    { "css", ExportFormat::css },
} };
constexpr Words<LibraryFormat, 2> libraryFormats { {
    { "text", LibraryFormat::layout },
    { "json", LibraryFormat::json },
} };

/// "--format" with the first of `words` as its default. `words` and `format` outlive `command`.
template <typename Value, std::size_t Count>
void addFormat(CLI::App& command, const Words<Value, Count>& words, Value& format)
{
    std::string all;
    for (const auto& [word, value] : words)
        all += (all.empty() ? "" : ", ") + std::string(word);
    const auto choose = [&words, &format, all](const std::string& typed) {
        for (const auto& [word, value] : words) {
            if (typed != word)
                continue;
            format = value;
            return;
        }
        throw CLI::ValidationError("--format", inQuotes(typed) + " is not one of " + all);
    };
    command.add_option_function<std::string>("--format", choose, "Form of the output: " + all)
        ->type_name("FORMAT");
}

/// The commands of the program, writing what they read into one request.
class Grammar {
public:
    explicit Grammar(Request& request)
        : request_(request)
    {
        app_.set_version_flag("--version", version, "Print the version and exit");
        app_.require_subcommand(0, 1);
        app_.footer(examples);
        addLibrary(app_);
        addColorCommands();
        addLibraryCommands();
        addListCommands();
    }

    CLI::App& app() { return app_; }

private:
    CLI::App& add(Command command, const char* name, const char* description)
    {
        auto& added = *app_.add_subcommand(name, description);
        added.set_version_flag("--version", version, "Print the version and exit");
        added.footer("");
        added.callback([this, command] { request_.command = command; });
        return added;
    }

    CLI::Option* addColor(CLI::App& command)
    {
        return command.add_option("COLOR", request_.color, colorHelp)->type_name("");
    }

    CLI::Option* addId(CLI::App& command, const char* name)
    {
        return command.add_option(name, request_.id, idHelp);
    }

    void addLibrary(CLI::App& command)
    {
        command
            .add_option(
                "--library", request_.library, "The library file to use instead of the user's own")
            ->type_name("FILE");
    }

    void addColorCommands()
    {
        auto& palette
            = add(Command::palette, "palette", "Show the color system of COLOR (or #6E56CF)");
        addColor(palette)->description(std::string(colorHelp) + "; - reads one a line");
        addFormat(palette, paletteFormats, request_.paletteFormat);

        auto& exporting
            = add(Command::exportColors, "export", "Print the colors of COLOR for other programs");
        addColor(exporting)->required();
        addFormat(exporting, exportFormats, request_.exportFormat);

        addColor(add(Command::name, "name", "Name COLOR in English"))->required();

        auto& contrast
            = add(Command::contrast, "contrast", "Print the WCAG contrast of two colors");
        addColor(contrast)->required();
        contrast.add_option("BACKGROUND", request_.background, colorHelp)
            ->type_name("")
            ->required();
    }

    void addLibraryCommands()
    {
        auto& save = add(Command::savePalette, "save", "Keep the palette of COLOR");
        addColor(save)->required();
        addLibrary(save);

        auto& list = add(Command::listLibrary, "list", "List the saved palettes, newest first");
        addFormat(list, libraryFormats, request_.libraryFormat);
        addLibrary(list);

        auto& deleting = add(Command::deletePalette, "delete", "Delete a saved palette");
        addId(deleting, "ID")->type_name("")->required();
        addLibrary(deleting);

        auto& use = add(Command::usePalette, "use", "Show the color system of a saved palette");
        addId(use, "ID")->type_name("")->required();
        addFormat(use, paletteFormats, request_.paletteFormat);
        addLibrary(use);
    }

    void addListCommands()
    {
        auto& install
            = add(Command::install, "install", "Install a palette as the color list \"Tintwell\"");
        addColor(install);
        addId(install, "--id")->type_name("ID");
        addLibrary(install);

        add(Command::listColorLists, "lists", "Show the color lists of the desktop");
    }

    Request& request_;
    CLI::App app_ { "A color system from one source color.", "tintwell-cli" };
};

/// A colour text may begin with hyphens, like any other sign around its digits. What would look
/// like an option loses them.
void unhyphenColors(std::vector<std::string>& arguments)
{
    bool isValue = false;
    for (auto& argument : arguments) {
        if (argument.starts_with('-') && !isValue && RGBAColor::fromHex(argument))
            argument.erase(0, argument.find_first_not_of('-'));
        isValue = argument == "--format" || argument == "--library" || argument == "--id";
    }
}

bool usesLibrary(Command command)
{
    switch (command) {
    case Command::savePalette:
    case Command::listLibrary:
    case Command::deletePalette:
    case Command::usePalette:
    case Command::install:
        return true;
    case Command::palette:
    case Command::exportColors:
    case Command::name:
    case Command::contrast:
    case Command::listColorLists:
        break;
    }
    return false;
}

/// The sentence for the first word that has no place.
std::string unexpected(const CLI::App& app)
{
    const auto words = app.remaining(/*recurse=*/true);
    const std::string first = words.empty() ? "" : words.front();
    if (first.starts_with('-'))
        return inQuotes(first) + " is not an option here";
    return inQuotes(first)
        + (app.get_subcommands().empty() ? " is not a command" : " is one word too many");
}

/// What the grammar itself cannot say; empty when all is well.
std::string misuseOf(const Request& request)
{
    if (request.library && !usesLibrary(request.command))
        return "--library goes with save, list, delete, use and install only";
    if (request.library && request.library->empty())
        return "--library needs the name of a file";
    if (request.id && request.id->size() < 4)
        return "an id needs at least its first four characters";
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
        return Report::misuse(unexpected(grammar.app()) + " (see tintwell-cli --help)");
    } catch (const CLI::ArgumentMismatch& error) {
        const std::string_view problem = error.what();
        return Report::misuse(printable(problem.substr(0, problem.find(':')))
            + " takes exactly one value (see tintwell-cli --help)");
    } catch (const CLI::ParseError& error) {
        return Report::misuse(printable(error.what()) + " (see tintwell-cli --help)");
    }
    if (grammar.app().get_subcommands().empty())
        return Report::printed(grammar.app().help());
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
