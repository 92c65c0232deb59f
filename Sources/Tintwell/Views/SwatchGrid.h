// Swatch tiles with their labels, in columns of equal width.
#pragma once

#include "Animation.h"
#include "CopiedMark.h"
#include "FocusRing.h"
#include "Label.h"
#include "NativeColorSwatch.h"
#include "SwatchMotion.h"
#include "Tint.h"
#include "TintwellViewState.h"
#include "Window.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace tintwell {

using CopyColor = std::function<void(const NamedColor&)>;

/// One tile with its name and hex text under it. The tile takes the pointer; the texts do nothing.
class SwatchCell : public QWidget, public platform::Tinted {
    Q_OBJECT
public:
    SwatchCell(const CellState& state, CopyColor copy, QWidget* parent);

    /// With a spring the tile blends from the colour that it shows now.
    void show(const CellState& state, const std::optional<platform::Spring>& spring);

    void setTint(const platform::Tint& tint) override { ring_->setColor(tint.focusRing); }

    [[nodiscard]] const CellState& shown() const { return shown_; }
    [[nodiscard]] DraggableColorView* tile() const { return tile_; }
    [[nodiscard]] static int heightOf(bool compact);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] NativeColorSwatch swatch() const;
    void showTexts();

    CellState shown_;
    CopyColor copy_;
    DraggableColorView* tile_;
    platform::Label* name_;
    platform::Label* hex_;
    CopiedMark* mark_;
    platform::FocusRing* ring_;
    SwatchMotion motion_;
};

/// The cells of one section, row by row. Cells live as long as their id is among the states.
class SwatchGrid : public QWidget, public platform::TabGroup {
public:
    explicit SwatchGrid(CopyColor copy);

    void show(const SectionState& state, const std::optional<platform::Spring>& spring);

    [[nodiscard]] const std::vector<SwatchCell*>& cells() const { return cells_; }
    [[nodiscard]] QSize sizeHint() const override;
    /// The tile that had the focus last, else the first one.
    [[nodiscard]] QWidget* tabStop() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();

    CopyColor copy_;
    std::size_t columns_ = 0;
    std::vector<SwatchCell*> cells_;
    QPointer<QWidget> focusedLast_;
};

/// Moves the keyboard focus from one swatch below `root` to its neighbour in the direction of an
/// arrow key, or with Home and End to the ends of its grid; false when there is none or the key is
/// another.
bool moveSwatchFocus(QWidget& root, int key);

} // namespace tintwell
