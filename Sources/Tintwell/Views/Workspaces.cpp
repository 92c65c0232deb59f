#include "Workspaces.h"

#include "Metrics.h"
#include "Separator.h"

#include <QKeyEvent>
#include <QVBoxLayout>

namespace tintwell {

namespace {

constexpr int sectionPaddingY = 16;
constexpr int sectionSpacing = 12;
constexpr int themeSpacing = 14;

/// A column without padding of its own.
QVBoxLayout* columnIn(QWidget* widget, int spacing)
{
    auto* column = new QVBoxLayout(widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    return column;
}

/// The content of a workspace: its sections go into a column that ends where they end.
QWidget* makeContent()
{
    auto* content = new QWidget;
    columnIn(content, 0)->setAlignment(Qt::AlignTop);
    return content;
}

} // namespace

PaletteSectionView::PaletteSectionView(CopyColor copy, QWidget* parent)
    : QWidget(parent)
    , heading_(new SectionHeading(this))
    , grid_(new SwatchGrid(std::move(copy), this))
{
    auto* column = columnIn(this, sectionSpacing);
    column->setContentsMargins(
        platform::Metrics::margin, sectionPaddingY, platform::Metrics::margin, sectionPaddingY);
    column->addWidget(heading_);
    column->addWidget(grid_);
}

void PaletteSectionView::show(
    const SectionState& state, const std::optional<platform::Spring>& spring)
{
    heading_->show(state.title, state.subtitle);
    grid_->show(state, spring);
}

ThemeSection::ThemeSection(CopyColor copy, QWidget* parent)
    : QWidget(parent)
    , heading_(new SectionHeading(this))
    , preview_(new ThemePreview(this))
    , grid_(new SwatchGrid(std::move(copy), this))
    , contrasts_(new ContrastRow(this))
{
    auto* column = columnIn(this, themeSpacing);
    column->setContentsMargins(platform::Metrics::margin, platform::Metrics::margin,
        platform::Metrics::margin, platform::Metrics::margin);
    for (auto* part : std::initializer_list<QWidget*> { heading_, preview_, grid_, contrasts_ })
        column->addWidget(part);
}

void ThemeSection::show(const ThemeState& state, const std::optional<platform::Spring>& spring)
{
    heading_->show(state.section.title, state.section.subtitle);
    preview_->show(state.preview);
    grid_->show(state.section, spring);
    contrasts_->show(state.contrasts);
}

void SwatchWorkspace::keyPressEvent(QKeyEvent* event)
{
    if (!moveSwatchFocus(*widget(), event->key()))
        return ScrollArea::keyPressEvent(event);
    revealFocus();
}

StudioWorkspace::StudioWorkspace(CopyColor copy, QWidget* parent)
    : SwatchWorkspace(makeContent(), parent)
    , copy_(std::move(copy))
{
}

void StudioWorkspace::show(
    const std::vector<SectionState>& sections, const std::optional<platform::Spring>& spring)
{
    auto* column = widget()->layout();
    while (sections_.size() < sections.size()) {
        if (!sections_.empty())
            column->addWidget(
                new platform::Separator(platform::Metrics::margin, platform::Metrics::margin));
        sections_.push_back(new PaletteSectionView(copy_));
        column->addWidget(sections_.back());
    }
    for (std::size_t i = 0; i < sections.size(); ++i)
        sections_[i]->show(sections[i], spring);
}

ThemeWorkspace::ThemeWorkspace(CopyColor copy, QWidget* parent)
    : SwatchWorkspace(makeContent(), parent)
    , copy_(std::move(copy))
{
}

void ThemeWorkspace::show(
    const std::vector<ThemeState>& themes, const std::optional<platform::Spring>& spring)
{
    auto* column = widget()->layout();
    while (themes_.size() < themes.size()) {
        if (!themes_.empty())
            column->addWidget(
                new platform::Separator(platform::Metrics::margin, platform::Metrics::margin));
        themes_.push_back(new ThemeSection(copy_));
        column->addWidget(themes_.back());
    }
    for (std::size_t i = 0; i < themes.size(); ++i)
        themes_[i]->show(themes[i], spring);
}

} // namespace tintwell
