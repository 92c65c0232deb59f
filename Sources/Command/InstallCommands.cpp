#include "InstallCommands.h"

#include "Terminal.h"

#include <algorithm>

namespace tintwell {

Report installColors(MacColorListInstaller& installer, const std::vector<NamedColor>& colors)
{
    const auto file = installer.install(installedListName, colors, std::nullopt);
    if (!file)
        return Report::failure("Install failed: " + file.error().description);
    const auto& publication = installer.publication();
    const auto reached = publication.summary();
    return Report::printed("Installed " + printable(file.value().filename().string())
        + (reached.empty() ? "" : (publication.copies.empty() ? ". " : "; ") + reached) + "\n");
}

std::string listsLayout(const std::vector<platform::ColorList>& lists)
{
    struct Row {
        std::string name;
        std::string count;
    };
    std::vector<Row> rows;
    int nameWidth = 0;
    std::size_t countWidth = 0;
    for (const auto& list : lists) {
        const auto count = list.colors().size();
        rows.push_back({ printable(list.name()),
            std::to_string(count) + (count == 1 ? " color" : " colors") });
        nameWidth = std::max(nameWidth, displayWidth(rows.back().name));
        countWidth = std::max(countWidth, rows.back().count.size());
    }

    std::string text;
    for (std::size_t at = 0; at < lists.size(); ++at) {
        const auto padding = std::string(countWidth - rows[at].count.size(), ' ');
        text += fitted(rows[at].name, nameWidth) + "  " + padding + rows[at].count + "  "
            + (lists[at].isEditable() ? "editable    " : "not editable") + "  "
            + printable(lists[at].file().string()) + "\n";
    }
    return text;
}

} // namespace tintwell
