#include "NativeColorSwatch.h"

#include "QtColor.h"
#include "ToolkitColor.h"

namespace tintwell {

namespace {

constexpr const char* tooltipSuffix = " — click to copy, drag to use";
constexpr const char* help
    = "Click to copy this color, or drag it into a compatible color control.";

} // namespace

DraggableColorView::DraggableColorView(const QColor& color, const std::string& label,
    double cornerRadius, std::function<void()> onClick, QWidget* parent)
    : ColorSwatch(color, cornerRadius, std::move(onClick), parent)
{
    setLabel(label);
}

void DraggableColorView::setLabel(const std::string& label)
{
    label_ = label;
    const auto text = QString::fromStdString(label);
    setToolTip(text + QString::fromUtf8(tooltipSuffix));
    platform::setAccessibleTexts(*this, text, QString::fromUtf8(help));
}

/// Many names stand in more than one place, and readers say no other text of a button.
QString DraggableColorView::description() const
{
    auto text = platform::hexText(color());
    if (!place_.isEmpty())
        text += QStringLiteral(", ") + place_;
    return text + QStringLiteral(". ") + accessibleDescription();
}

bool DraggableColorView::accessibilityPerformPress()
{
    press();
    return true;
}

std::unique_ptr<DraggableColorView> NativeColorSwatch::makeNSView() const
{
    return std::make_unique<DraggableColorView>(toQColor(color), label, cornerRadius, onClick);
}

void NativeColorSwatch::updateNSView(DraggableColorView& view) const
{
    view.setColor(toQColor(color));
    view.setLabel(label);
    view.setCornerRadius(cornerRadius);
    view.setOnClick(onClick);
}

} // namespace tintwell
