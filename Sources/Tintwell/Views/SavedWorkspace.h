// The Saved workspace: the library, or a hint where it is empty.
#pragma once

#include "Animation.h"
#include "Button.h"
#include "Label.h"
#include "RecyclingList.h"
#include "ScrollArea.h"
#include "Separator.h"
#include "Tint.h"
#include "TintwellViewState.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace tintwell {

/// What can be done with the palette of an id.
struct SavedActions {
    using Act = std::function<void(const platform::Uuid& id)>;

    Act use;
    Act install;
    Act remove;
};

class ColorStrip;

/// One palette of the library: name, date, what can be done with it, and its first colours.
class SavedPaletteRow : public QWidget {
    Q_OBJECT
public:
    explicit SavedPaletteRow(const SavedActions& actions, QWidget* parent = nullptr);

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
    explicit SavedWorkspace(SavedActions actions, QWidget* parent = nullptr);

    void show(const SavedState& state, const std::optional<platform::Spring>& spring);
    void setTint(const platform::Tint& tint) override { tint_ = tint; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    SavedState shown_;
    SavedActions actions_;
    platform::Tint tint_;
    platform::RecyclingList* list_;
    platform::ScrollArea* area_;
    QWidget* empty_;
};

} // namespace tintwell
