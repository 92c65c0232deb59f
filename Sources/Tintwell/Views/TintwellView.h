// The panel's root view: header, workspace picker, workspace, footer.
#pragma once

#include "CaptureHeader.h"
#include "Motion.h"
#include "PageStack.h"
#include "SavedWorkspace.h"
#include "SegmentedPicker.h"
#include "SwatchWorkspaces.h"
#include "Tint.h"
#include "UtilityFooter.h"
#include "ViewBridge.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <string>

namespace tintwell {

/// What the views need of the application beside the model.
struct ViewActions {
    std::function<void()> openColorPanel;
    std::function<void()> quit;
    DateFormatter dateText;
};

/// Everything that a panel or the preview window shows of one model. The model outlives it.
class TintwellView : public QWidget {
public:
    TintwellView(TintwellModel& model, ViewActions actions, QWidget* parent = nullptr);

    /// Shows what the model holds now, without waiting for the event loop.
    void showNow() { bridge_.showNow(); }
    /// The accent that the controls show at this moment.
    [[nodiscard]] const platform::Tint& tint() const { return tint_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void addShortcuts();
    [[nodiscard]] SavedActions savedActions();
    /// The palette of a row; none when it has just gone.
    [[nodiscard]] const SavedPalette* savedPalette(const platform::Uuid& id) const;

    /// What the context menu of a part copies, and whether it exports the palette of that.
    struct CopyOffer {
        NamedColor color;
        std::string property;
        bool isSource = false;
    };
    [[nodiscard]] std::optional<CopyOffer> offerOf(const QWidget* part) const;
    /// Copies the focused tile, else the source.
    void copyFocused();
    /// Opens the menu of the focused part, else of the source.
    void openMenuOfFocus();
    void openCopyMenu(const CopyOffer& offer, QWidget& owner, const QRect& area, bool byKeyboard);
    void show(const std::optional<platform::Spring>& spring);
    void showTint(const std::optional<platform::Spring>& spring);
    void showWorkspace(const std::optional<platform::Spring>& spring);
    [[nodiscard]] QWidget* workspace(WorkspaceTab tab);

    TintwellModel& model_;
    ViewActions actions_;
    CaptureHeader* header_;
    platform::SegmentedPicker* workspacePicker_;
    platform::PageStack* workspace_;
    UtilityFooter* footer_;
    /// Built when they are first shown.
    StudioWorkspace* studio_ = nullptr;
    ThemeWorkspace* themes_ = nullptr;
    SavedWorkspace* saved_ = nullptr;

    platform::Tint tint_;
    TintState shownTint_;
    /// What the Studio was last scrolled to the top for.
    RGBAColor shownSource_;
    platform::Motion tintMotion_;
    platform::ViewBridge bridge_;
};

} // namespace tintwell
