#include "SwatchWorkspaces.h"

#include "Accessibility.h"
#include "Metrics.h"
#include "Separator.h"
#include "Stack.h"

#include <QKeyEvent>

namespace tintwell {

namespace {

using platform::Metrics::margin;

constexpr int sectionPaddingY = 16;
constexpr int sectionSpacing = 12;
constexpr int themeSpacing = 14;
constexpr int headingSpacing = 2;

const platform::TextStyle titleStyle { .size = 14, .weight = QFont::DemiBold };
const platform::TextStyle subtitleStyle { .size = 11 };

} // namespace

SectionHeading::SectionHeading()
    : title_(new platform::Label(titleStyle))
    , subtitle_(new platform::Label(subtitleStyle, &platform::Theme::secondary))
{
    platform::setAccessibleRole(*title_, QAccessible::Heading);
    setLayout(platform::vstack(headingSpacing, { title_, subtitle_ }, {}));
}

void SectionHeading::show(const std::string& title, const std::string& subtitle)
{
    title_->setText(QString::fromStdString(title));
    subtitle_->setText(QString::fromStdString(subtitle));
}

PaletteSectionView::PaletteSectionView(CopyColor copy)
    : heading_(new SectionHeading)
    , grid_(new SwatchGrid(std::move(copy)))
{
    setLayout(platform::padded(
        platform::vstack(sectionSpacing, { heading_, grid_ }, {}), margin, sectionPaddingY));
}

void PaletteSectionView::show(
    const SectionState& state, const std::optional<platform::Spring>& spring)
{
    heading_->show(state.title, state.subtitle);
    grid_->show(state, spring);
}

ThemeSection::ThemeSection(CopyColor copy)
    : heading_(new SectionHeading)
    , preview_(new ThemePreview)
    , grid_(new SwatchGrid(std::move(copy)))
    , contrasts_(new ContrastRow)
{
    setLayout(platform::padded(
        platform::vstack(themeSpacing, { heading_, preview_, grid_, contrasts_ }, {}), margin,
        margin));
}

void ThemeSection::show(const ThemeState& state, const std::optional<platform::Spring>& spring)
{
    heading_->show(state.section.title, state.section.subtitle);
    preview_->show(state.preview);
    grid_->show(state.section, spring);
    contrasts_->show(state.contrasts);
}

template <typename Section>
SwatchWorkspace<Section>::SwatchWorkspace(CopyColor copy)
    : ScrollArea(platform::hosted(platform::vstack(0, {})))
    , copy_(std::move(copy))
{
    // The column ends where its sections end.
    widget()->layout()->setAlignment(Qt::AlignTop);
}

template <typename Section>
void SwatchWorkspace<Section>::show(const std::vector<typename Section::State>& states,
    const std::optional<platform::Spring>& spring)
{
    auto* column = widget()->layout();
    while (sections_.size() < states.size()) {
        if (!sections_.empty())
            column->addWidget(new platform::Separator(margin, margin));
        sections_.push_back(new Section(copy_));
        column->addWidget(sections_.back());
    }
    for (std::size_t i = 0; i < states.size(); ++i)
        sections_[i]->show(states[i], spring);
}

template <typename Section> void SwatchWorkspace<Section>::keyPressEvent(QKeyEvent* event)
{
    if (!moveSwatchFocus(*widget(), event->key()))
        return ScrollArea::keyPressEvent(event);
    revealFocus();
}

template class SwatchWorkspace<PaletteSectionView>;
template class SwatchWorkspace<ThemeSection>;

} // namespace tintwell
