#include "SwatchWorkspaces.h"

#include "Metrics.h"
#include "Separator.h"
#include "Stack.h"

#include <QKeyEvent>
#include <QVBoxLayout>

namespace tintwell {

namespace {

constexpr int sectionPaddingY = 16;
constexpr int sectionSpacing = 12;
constexpr int themeSpacing = 14;
constexpr int headingSpacing = 2;

const platform::TextStyle titleStyle { .size = 14, .weight = QFont::DemiBold };
const platform::TextStyle subtitleStyle { .size = 11 };

/// A column without padding of its own.
QVBoxLayout* columnIn(QWidget* widget, int spacing)
{
    auto* column = new QVBoxLayout(widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    return column;
}

} // namespace

SectionHeading::SectionHeading(QWidget* parent)
    : QWidget(parent)
    , title_(new platform::Label(titleStyle))
    , subtitle_(new platform::Label(subtitleStyle, platform::ColorRole::secondary))
{
    setLayout(platform::vstack(headingSpacing, { title_, subtitle_ }, {}));
}

void SectionHeading::show(const std::string& title, const std::string& subtitle)
{
    title_->setText(QString::fromStdString(title));
    subtitle_->setText(QString::fromStdString(subtitle));
}

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

SwatchWorkspace::SwatchWorkspace(CopyColor copy, QWidget* parent)
    : ScrollArea(new QWidget, parent)
    , copy_(std::move(copy))
{
    // The column ends where its sections end.
    columnIn(widget(), 0)->setAlignment(Qt::AlignTop);
}

template <typename Section, typename State>
void SwatchWorkspace::showSections(std::vector<Section*>& sections,
    const std::vector<State>& states, const std::optional<platform::Spring>& spring)
{
    using platform::Metrics::margin;
    auto* column = widget()->layout();
    while (sections.size() < states.size()) {
        if (!sections.empty())
            column->addWidget(new platform::Separator(margin, margin));
        sections.push_back(new Section(copy_));
        column->addWidget(sections.back());
    }
    for (std::size_t i = 0; i < states.size(); ++i)
        sections[i]->show(states[i], spring);
}

void SwatchWorkspace::keyPressEvent(QKeyEvent* event)
{
    if (!moveSwatchFocus(*widget(), event->key()))
        return ScrollArea::keyPressEvent(event);
    revealFocus();
}

void StudioWorkspace::show(
    const std::vector<SectionState>& sections, const std::optional<platform::Spring>& spring)
{
    showSections(sections_, sections, spring);
}

void ThemeWorkspace::show(
    const std::vector<ThemeState>& themes, const std::optional<platform::Spring>& spring)
{
    showSections(themes_, themes, spring);
}

} // namespace tintwell
