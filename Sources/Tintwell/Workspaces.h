// The three workspaces of the panel.
#pragma once

#include "RecyclingList.h"
#include "ScrollArea.h"
#include "SwatchGrid.h"
#include "ThemePreview.h"

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

} // namespace tintwell
