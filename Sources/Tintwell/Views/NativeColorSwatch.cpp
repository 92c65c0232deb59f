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
    if (label != label_)
        tellNameChanged();
    label_ = label;
    setToolTip(QString::fromStdString(label) + QString::fromUtf8(tooltipSuffix));
}

/// Many names stand in more than one place, and of a button readers say name and description only.
QString DraggableColorView::textOf(QAccessible::Text which) const
{
    if (which == QAccessible::Name)
        return QString::fromStdString(label_);
    if (which == QAccessible::Help)
        return QString::fromUtf8(help);
    if (which != QAccessible::Description)
        return {};
    const auto hex = platform::hexText(color());
    const auto where = place_.isEmpty() ? hex : hex + QStringLiteral(", ") + place_;
    return where + QStringLiteral(". ") + QString::fromUtf8(help);
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
