// The panel's root view: header, workspace picker, workspace, footer.
#pragma once

#include "Button.h"
#include "CopiedMark.h"
#include "FadingName.h"
#include "FocusRing.h"
#include "PageStack.h"
#include "RollingText.h"
#include "SegmentedPicker.h"
#include "Shadow.h"
#include "SwatchMotion.h"
#include "Tint.h"
#include "TintwellModel.h"
#include "ViewBridge.h"
#include "Workspaces.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace tintwell {

/// What the views need of the application beside the model.
struct ViewActions {
    std::function<void()> openColorPanel;
    std::function<void()> quit;
    DateFormatter dateText;
};

/// The source colour: its swatch, name and hex text, and the buttons that pick and copy it. A
/// colour that is dropped here becomes the source.
class CaptureHeader : public QWidget, public platform::Tinted {
    Q_OBJECT
public:
    explicit CaptureHeader(TintwellModel& model, QWidget* parent = nullptr);

    void show(const HeaderState& state, const std::optional<platform::Spring>& spring);
    void setTint(const platform::Tint& tint) override { ring_->setColor(tint.focusRing); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    [[nodiscard]] NativeColorSwatch swatch(const RGBAColor& color, const std::string& name) const;
    QLayout* makeColumn();
    void setCanSample(bool canSample);
    void placeMark();

    HeaderState shown_;
    bool focusReturns_ = false;
    TintwellModel& model_;
    DraggableColorView* swatch_;
    CopiedMark* mark_;
    platform::FocusRing* ring_;
    platform::FadingName* name_;
    platform::RollingText* hex_;
    platform::Button* sample_;
    platform::Button* copy_;
    platform::Shadow shadow_;
    SwatchMotion motion_;
};

/// The status line, "Save + Install" and the menu of everything else.
class UtilityFooter : public QWidget, public platform::Tinted {
    Q_OBJECT
public:
    UtilityFooter(TintwellModel& model, const ViewActions& actions, QWidget* parent = nullptr);

    void show(const std::string& status);
    void setTint(const platform::Tint& tint) override { tint_ = tint; }

private:
    void openMenu(const ViewActions& actions);

    TintwellModel& model_;
    platform::StatusLine* status_;
    platform::Button* menu_;
    platform::Tint tint_;
};

/// Everything that a panel or the preview window shows of one model. The model outlives it.
class TintwellView : public QWidget {
    Q_OBJECT
public:
    TintwellView(TintwellModel& model, ViewActions actions, QWidget* parent = nullptr);

    /// Shows what the model holds now, without waiting for the event loop.
    void showNow() { bridge_.showNow(); }
    /// The accent that the controls show at this moment.
    [[nodiscard]] const platform::Tint& tint() const { return tint_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addShortcuts();
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
    platform::Motion tintMotion_;
    platform::ViewBridge bridge_;
};

} // namespace tintwell
