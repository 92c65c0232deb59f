// The workspaces that show sections of swatches: Studio and Themes.
#pragma once

#include "ContrastRow.h"
#include "Label.h"
#include "ScrollArea.h"
#include "SwatchGrid.h"
#include "ThemePreview.h"
#include "TintwellViewState.h"

#include <optional>
#include <vector>

namespace tintwell {

/// A section's title over its one-line description.
class SectionHeading : public QWidget {
public:
    SectionHeading();

    void show(const std::string& title, const std::string& subtitle);

private:
    platform::Label* title_;
    platform::Label* subtitle_;
};

/// A titled grid of swatches.
class PaletteSectionView : public QWidget {
public:
    using State = SectionState;

    explicit PaletteSectionView(CopyColor copy);
    void show(const SectionState& state, const std::optional<platform::Spring>& spring);

private:
    SectionHeading* heading_;
    SwatchGrid* grid_;
};

/// One theme: heading, mock interface, role swatches, contrast labels.
class ThemeSection : public QWidget {
public:
    using State = ThemeState;

    explicit ThemeSection(CopyColor copy);
    void show(const ThemeState& state, const std::optional<platform::Spring>& spring);

private:
    SectionHeading* heading_;
    ThemePreview* preview_;
    SwatchGrid* grid_;
    ContrastRow* contrasts_;
};

/// Scrolls sections of swatches; the arrow keys go from swatch to swatch.
template <typename Section> class SwatchWorkspace : public platform::ScrollArea {
public:
    explicit SwatchWorkspace(CopyColor copy);

    /// Makes the sections that are missing, with lines between them, and shows each its state.
    void show(const std::vector<typename Section::State>& states,
        const std::optional<platform::Spring>& spring);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    CopyColor copy_;
    std::vector<Section*> sections_;
};

/// Every section of the current palette.
using StudioWorkspace = SwatchWorkspace<PaletteSectionView>;
/// The light theme over the dark one.
using ThemeWorkspace = SwatchWorkspace<ThemeSection>;

} // namespace tintwell
