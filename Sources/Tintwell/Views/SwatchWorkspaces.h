// The workspaces that show sections of swatches: Studio and Themes.
#pragma once

#include "Label.h"
#include "ScrollArea.h"
#include "SwatchGrid.h"
#include "ThemePreview.h"
#include "TintwellViewState.h"

#include <optional>
#include <utility>
#include <vector>

namespace tintwell {

/// A section's title over its one-line description.
class SectionHeading : public QWidget {
    Q_OBJECT
public:
    explicit SectionHeading(QWidget* parent = nullptr);

    void show(const std::string& title, const std::string& subtitle);

private:
    platform::Label* title_;
    platform::Label* subtitle_;
};

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
protected:
    explicit SwatchWorkspace(CopyColor copy, QWidget* parent = nullptr);

    /// Makes the sections that are missing, with lines between them, and shows each its state.
    template <typename Section, typename State>
    void showSections(std::vector<Section*>& sections, const std::vector<State>& states,
        const std::optional<platform::Spring>& spring);
    void keyPressEvent(QKeyEvent* event) override;

private:
    CopyColor copy_;
};

/// Every section of the current palette.
class StudioWorkspace : public SwatchWorkspace {
    Q_OBJECT
public:
    explicit StudioWorkspace(CopyColor copy)
        : SwatchWorkspace(std::move(copy))
    {
    }
    void show(
        const std::vector<SectionState>& sections, const std::optional<platform::Spring>& spring);

private:
    std::vector<PaletteSectionView*> sections_;
};

/// The light theme over the dark one.
class ThemeWorkspace : public SwatchWorkspace {
    Q_OBJECT
public:
    explicit ThemeWorkspace(CopyColor copy)
        : SwatchWorkspace(std::move(copy))
    {
    }
    void show(const std::vector<ThemeState>& themes, const std::optional<platform::Spring>& spring);

private:
    std::vector<ThemeSection*> themes_;
};

} // namespace tintwell
