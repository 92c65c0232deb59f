// The swatch of a palette's colour: a click copies it, a drag takes it into another program.
#pragma once

#include "ColorSwatch.h"
#include "RGBAColor.h"

#include <functional>
#include <memory>
#include <string>

namespace tintwell {

/// A swatch with a name. The container draws the focus ring.
class DraggableColorView final : public platform::ColorSwatch {
public:
    /// `cornerRadius` is in points.
    DraggableColorView(const QColor& color, const std::string& label, double cornerRadius,
        std::function<void()> onClick, QWidget* parent = nullptr);

    [[nodiscard]] const std::string& label() const { return label_; }
    void setLabel(const std::string& label);

    /// Where the colour stands, such as its section: readers say it after the hex text.
    void setPlace(const QString& place) { place_ = place; }

    /// Does what a click does; always handled.
    bool accessibilityPerformPress();

protected:
    [[nodiscard]] QString textOf(QAccessible::Text which) const override;

private:
    std::string label_;
    QString place_;
};

/// What one hosted swatch shows, from which its view is made and brought up to date.
struct NativeColorSwatch {
    RGBAColor color;
    std::string label;
    double cornerRadius = 0;
    std::function<void()> onClick;

    [[nodiscard]] std::unique_ptr<DraggableColorView> makeNSView() const;
    void updateNSView(DraggableColorView& view) const;
};

} // namespace tintwell
