#include "SavedWorkspace.h"

#include "Accessibility.h"
#include "Fonts.h"
#include "Metrics.h"
#include "QtColor.h"
#include "Shapes.h"
#include "Stack.h"
#include "Symbols.h"
#include "ThemeSource.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace tintwell {

namespace {

using platform::Metrics::margin;

const platform::TextStyle nameStyle { .size = 14, .weight = QFont::DemiBold };
const platform::TextStyle dateStyle { .size = 10 };
constexpr int textSpacing = 2;
constexpr int rowSpacing = 11;
constexpr int stripHeight = 16;
constexpr double stripRadius = 6;
constexpr double stripEdge = 0.75;

const platform::TextStyle emptyTitleStyle { .size = 15, .weight = QFont::DemiBold };
const platform::TextStyle hintStyle { .size = 11, .lineHeight = 15 };
constexpr int hintWidth = 260;
constexpr int emptyHeight = 390;
constexpr int emptySpacing = 10;
constexpr int emptySymbol = 34;
constexpr double emptySymbolStroke = 1.25;

int textHeight()
{
    return platform::lineHeightOf(nameStyle) + textSpacing + platform::lineHeightOf(dateStyle);
}

/// What is there instead of a library without palettes.
class EmptyState : public QWidget {
public:
    explicit EmptyState(QWidget* parent)
        : QWidget(parent)
    {
        auto* title = new platform::Label(
            emptyTitleStyle, &platform::Theme::text, QStringLiteral("No saved palettes"));
        auto* hint = new platform::Label(hintStyle, &platform::Theme::secondary,
            QStringLiteral(
                "Save + Install keeps the current system here and adds it to macOS Colors."));
        // In boxes of one width, which lie on whole points, both are centred to a pixel.
        for (auto* label : { title, hint }) {
            label->setWrapWidth(hintWidth);
            label->setAlignment(Qt::AlignHCenter);
        }
        auto* column = platform::vstack(emptySpacing,
            { platform::spacer(), platform::spacer(emptySymbol + emptySpacing), title, hint,
                platform::spacer() },
            Qt::AlignHCenter);
        setLayout(column);
        title_ = title;
        setMinimumHeight(emptyHeight);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        platform::paintSymbol(painter, platform::Symbol::stackSlash,
            QRectF((width() - emptySymbol) / 2.0, title_->y() - emptySpacing - emptySymbol,
                emptySymbol, emptySymbol),
            platform::currentTheme().tertiary, emptySymbolStroke);
    }

private:
    platform::Label* title_ = nullptr;
};

} // namespace

/// The first colours of a palette side by side.
class ColorStrip : public QWidget {
public:
    using QWidget::QWidget;

    void show(const std::vector<RGBAColor>& colors)
    {
        colors_ = colors;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF whole = rect();
        const auto shape = platform::smoothRoundedRect(whole, stripRadius);
        const auto count = static_cast<double>(colors_.size());
        double left = 0;
        for (const auto& color : colors_) {
            const double right = left + whole.width() / count;
            const QRectF band(left, 0, right - left, whole.height());
            // Clipping at whole pixels keeps neighbours from blending into each other.
            painter.setClipRect(platform::alignedToPixels(painter, band));
            painter.fillPath(shape, toQColor(color));
            left = right;
        }
        if (colors_.empty())
            return;
        painter.setClipping(false);
        platform::paintPlate(painter, whole, stripRadius, Qt::transparent,
            platform::currentTheme().separator, stripEdge);
    }

private:
    std::vector<RGBAColor> colors_;
};

SavedPaletteRow::SavedPaletteRow(const SavedActions& actions, QWidget* parent)
    : QWidget(parent)
    , name_(new platform::Label(nameStyle, &platform::Theme::text, {}, this))
    , date_(new platform::Label(dateStyle, &platform::Theme::secondary, {}, this))
    , use_(platform::borderlessButton(QStringLiteral("Use")))
    , install_(platform::borderlessButton(QStringLiteral("Install")))
    , delete_(platform::destructiveIcon(platform::Symbol::trash, QStringLiteral("Delete palette")))
    , strip_(new ColorStrip(this))
    , separator_(new platform::Separator(margin, 0, this))
{
    platform::setAccessibleRole(*this, QAccessible::ListItem);
    for (auto* button : { use_, install_, delete_ }) {
        button->setParent(this);
        button->resize(button->sizeHint());
    }
    for (const auto& [button, act] : { std::pair(use_, actions.use),
             std::pair(install_, actions.install), std::pair(delete_, actions.remove) })
        connect(button, &platform::Button::clicked, this, [this, act = act] { act(shown_.id); });
}

int SavedPaletteRow::rowHeight()
{
    return 2 * margin + textHeight() + rowSpacing + stripHeight
        + static_cast<int>(platform::Metrics::separatorThickness);
}

void SavedPaletteRow::show(const SavedRowState& state)
{
    if (state == shown_)
        return;
    const auto name = QString::fromStdString(state.name);
    name_->setText(name);
    date_->setText(QString::fromStdString(state.date));
    strip_->show(state.strip);
    // Rows look alike to who cannot see them: say which palette a button is for.
    for (auto* button : { use_, install_, delete_ })
        platform::setAccessibleTexts(*button, button->accessibleName(), name);
    platform::setAccessibleTexts(*this, name, {});
    shown_ = state;
}

void SavedPaletteRow::resizeEvent(QResizeEvent*)
{
    const int buttonTop = margin + qRound(name_->baseline() - use_->baseline());
    int right = width() - margin + platform::Metrics::opticalOverhang;
    for (auto* button : { delete_, install_, use_ }) {
        right -= button->width();
        // The icon is centred on the texts beside it.
        button->move(right, buttonTop);
        right -= platform::Metrics::borderlessGap;
    }
    const int textWidth = right - margin;
    name_->setGeometry(margin, margin, textWidth, platform::lineHeightOf(nameStyle));
    date_->setGeometry(margin, name_->geometry().bottom() + 1 + textSpacing, textWidth,
        platform::lineHeightOf(dateStyle));
    strip_->setGeometry(
        margin, margin + textHeight() + rowSpacing, width() - 2 * margin, stripHeight);
    separator_->setGeometry(
        0, height() - separator_->sizeHint().height(), width(), separator_->sizeHint().height());
}

SavedWorkspace::SavedWorkspace(SavedActions actions, QWidget* parent)
    : QWidget(parent)
    , actions_(std::move(actions))
    , list_(new platform::RecyclingList(
          SavedPaletteRow::rowHeight(),
          [this](QWidget* list) {
              auto* row = new SavedPaletteRow(actions_, list);
              platform::applyTint(*row, tint_);
              return row;
          },
          [this](QWidget& widget, std::size_t index) {
              auto& row = static_cast<SavedPaletteRow&>(widget);
              if (const auto state = shown_.row(index))
                  row.show(*state);
              return row.shown().id.text();
          }))
    , area_(new platform::ScrollArea(list_))
    , empty_(new EmptyState(this))
{
    area_->setParent(this);
}

void SavedWorkspace::resizeEvent(QResizeEvent*)
{
    area_->setGeometry(rect());
    empty_->setGeometry(0, 0, width(), std::max(height(), emptyHeight));
}

void SavedWorkspace::show(const SavedState& state, const std::optional<platform::Spring>& spring)
{
    shown_ = state;
    area_->setVisible(state.count > 0);
    empty_->setVisible(state.count == 0);
    list_->reload(state.count, spring);
}

} // namespace tintwell
