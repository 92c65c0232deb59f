// The three workspaces of the panel.
#pragma once

#include "Button.h"
#include "Label.h"
#include "RecyclingList.h"
#include "ScrollArea.h"
#include "Separator.h"
#include "SwatchGrid.h"
#include "ThemePreview.h"
#include "Tint.h"
#include "TintwellModel.h"

namespace tintwell {

/// A titled grid of swatches.
class PaletteSectionView : public QWidget {
    Q_OBJECT
public:
    explicit PaletteSectionView(CopyColor copy, QWidget* parent = nullptr);
    void show(const SectionState& state, const std::optional<platform::Spring>& spring);

private:
    SectionHeading* heading_;
    SwatchGrid* grid_;
};

/// One theme: heading, mock interface, role swatches, contrast labels.
class ThemeSection : public QWidget {
    Q_OBJECT
public:
    explicit ThemeSection(CopyColor copy, QWidget* parent = nullptr);
    void show(const ThemeState& state, const std::optional<platform::Spring>& spring);

private:
    SectionHeading* heading_;
    ThemePreview* preview_;
    SwatchGrid* grid_;
    ContrastRow* contrasts_;
};

/// Scrolls sections of swatches; the arrow keys go from swatch to swatch.
class SwatchWorkspace : public platform::ScrollArea {
    Q_OBJECT
public:
    using ScrollArea::ScrollArea;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

/// Every section of the current palette.
class StudioWorkspace : public SwatchWorkspace {
    Q_OBJECT
public:
    explicit StudioWorkspace(CopyColor copy, QWidget* parent = nullptr);
    void show(
        const std::vector<SectionState>& sections, const std::optional<platform::Spring>& spring);

private:
    CopyColor copy_;
    std::vector<PaletteSectionView*> sections_;
};

/// The light theme over the dark one.
class ThemeWorkspace : public SwatchWorkspace {
    Q_OBJECT
public:
    explicit ThemeWorkspace(CopyColor copy, QWidget* parent = nullptr);
    void show(const std::vector<ThemeState>& themes, const std::optional<platform::Spring>& spring);

private:
    CopyColor copy_;
    std::vector<ThemeSection*> themes_;
};

struct RowActions {
    std::function<void()> onUse;
    std::function<void()> onInstall;
    std::function<void()> onDelete;
};

class ColorStrip;

/// One palette of the library: name, date, what can be done with it, and its first colours.
class SavedPaletteRow : public QWidget {
    Q_OBJECT
public:
    explicit SavedPaletteRow(const RowActions& actions, QWidget* parent = nullptr);

    void show(const SavedRowState& state);
    [[nodiscard]] const SavedRowState& shown() const { return shown_; }
    /// The divider below included.
    [[nodiscard]] static int rowHeight();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    SavedRowState shown_;
    platform::Label* name_;
    platform::Label* date_;
    platform::Button* use_;
    platform::Button* install_;
    platform::Button* delete_;
    ColorStrip* strip_;
    platform::Separator* separator_;
};

/// The library, newest first, or a hint where it is empty.
class SavedWorkspace : public QWidget, public platform::Tinted {
    Q_OBJECT
public:
    SavedWorkspace(TintwellModel& model, DateFormatter dateText, QWidget* parent = nullptr);

    void show();
    void setTint(const platform::Tint& tint) override { tint_ = tint; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QWidget* makeRow(QWidget* parent);

    TintwellModel& model_;
    DateFormatter dateText_;
    platform::Tint tint_;
    platform::RecyclingList* list_;
    platform::ScrollArea* area_;
    QWidget* empty_;
};

} // namespace tintwell
