#include "ExportDialog.h"

#include "AtomicFile.h"
#include "PaletteExport.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

#include <algorithm>

namespace tintwell {

namespace {

QString filterOf(const ExportFormatTraits& traits)
{
    const std::string description(traits.description);
    return QString::fromStdString(description + " (*" + std::string(traits.ending) + ")");
}

const ExportFormatTraits& traitsOf(const QString& filter)
{
    const auto* const found = std::find_if(exportFormats.begin(), exportFormats.end(),
        [&filter](const auto& traits) { return filterOf(traits) == filter; });
    return found != exportFormats.end() ? *found : traitsOf(ExportFormat::css);
}

platform::Result<void> writePalette(
    const GeneratedPalette& palette, const std::filesystem::path& file)
{
    const auto format = exportFormatOf(file);
    if (!format)
        return platform::Error { file.filename().string()
            + " has no ending that tells its format" };
    const auto content = exported(palette, *format);
    if (!content)
        return content.error();
    return platform::writeFileAtomically(file, content.value());
}

/// Else the window manager may choose another program's window, and the panel, which closes when
/// it loses the focus, would have none to lose.
void returnFocus(const QDialog& dialog, QWidget* window)
{
    const auto activate = [window] {
        if (QApplication::activeModalWidget() == nullptr)
            window->activateWindow();
    };
    QObject::connect(&dialog, &QDialog::finished, window, activate, Qt::QueuedConnection);
}

} // namespace

void openExportDialog(QWidget& owner, const RGBAColor& source)
{
    const auto tell = [window = owner.window()](const platform::Error& error) {
        auto* box = new QMessageBox(QMessageBox::Warning, QStringLiteral("Tintwell"),
            QString::fromStdString("Export failed: " + error.description), QMessageBox::Ok, window);
        box->setAttribute(Qt::WA_DeleteOnClose);
        returnFocus(*box, window);
        box->open();
    };
    auto palette = derivedPalette(source);
    if (!palette)
        return tell(palette.error());
    auto* dialog = new QFileDialog(owner.window(), QStringLiteral("Export palette"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    QStringList filters;
    for (const auto& traits : exportFormats)
        filters.append(filterOf(traits));
    dialog->setNameFilters(filters);
    // A name without an ending gets that of the filter, and the name that is offered follows it.
    const auto name = QString::fromStdString(palette.value().sourceName);
    const auto follow = [dialog, name](const QString& filter) {
        const auto ending = QString::fromStdString(std::string(traitsOf(filter).ending));
        dialog->setDefaultSuffix(ending);
        dialog->selectFile(name + ending);
    };
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, follow);
    const auto chosen = filterOf(traitsOf(ExportFormat::css));
    dialog->selectNameFilter(chosen);
    follow(chosen);
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
        [tell, palette = std::move(palette).value()](const QString& file) {
            if (const auto written = writePalette(palette, file.toStdString()); !written)
                tell(written.error());
        });
    returnFocus(*dialog, owner.window());
    dialog->open();
}

} // namespace tintwell
