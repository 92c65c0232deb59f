// The header of the panel.
#pragma once

#include "Button.h"
#include "CopiedMark.h"
#include "FadingName.h"
#include "FocusRing.h"
#include "RollingText.h"
#include "Shadow.h"
#include "SwatchMotion.h"
#include "Tint.h"
#include "TintwellModel.h"
#include "TintwellViewState.h"

#include <QWidget>

#include <optional>

namespace tintwell {

/// The source colour: its swatch, name and hex text, and the buttons that pick and copy it. A
/// colour that is dropped here becomes the source.
class CaptureHeader : public QWidget, public platform::Tinted {
    Q_OBJECT
public:
    static constexpr int fullHeight = 140;

    explicit CaptureHeader(TintwellModel& model);

    void show(const HeaderState& state, const std::optional<platform::Spring>& spring);
    [[nodiscard]] QWidget* swatch() const { return swatch_; }
    void setTint(const platform::Tint& tint) override { ring_->setColor(tint.focusRing); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    [[nodiscard]] NativeColorSwatch record(const RGBAColor& color, const std::string& name) const;
    QLayout* makeColumn();
    void setCanSample(bool canSample);
    void placeMark();
    void lightUp(bool isOffered);

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
    /// Whether a drag that may bring a colour is over the header.
    bool isOffered_ = false;
};

} // namespace tintwell
