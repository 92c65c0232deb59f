#include "ColorSwatchAccessible.h"

#include "ColorSwatch.h"
#include "ToolkitColor.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <algorithm>

namespace platform {

namespace {

/// The desktop's accessibility bus has no textual values; it reads them as the text of the object,
/// which is what the text interface is for.
class SwatchAccessible final : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit SwatchAccessible(ColorSwatch* view)
        : QAccessibleWidget(view, QAccessible::Button)
    {
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value)
            return hex();
        return QAccessibleWidget::text(kind == QAccessible::Help ? QAccessible::Description : kind);
    }

    QStringList actionNames() const override
    {
        return QStringList { pressAction() } + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override
    {
        if (name == pressAction())
            view().press();
        else
            QAccessibleWidget::doAction(name);
    }

    QString text(int start, int end) const override { return hex().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(hex().size()); }
    QRect characterRect(int /*offset*/) const override { return rect(); }
    int offsetAtPoint(const QPoint& /*point*/) const override { return -1; }
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override { }
    int selectionCount() const override { return 0; }
    void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
    void addSelection(int /*start*/, int /*end*/) override { }
    void removeSelection(int /*index*/) override { }
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override { }
    void scrollToSubstring(int /*start*/, int /*end*/) override { }
    QString attributes(int /*offset*/, int* start, int* end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }

private:
    [[nodiscard]] ColorSwatch& view() const { return *static_cast<ColorSwatch*>(widget()); }
    [[nodiscard]] QString hex() const { return hexText(view().color()); }
};

QAccessibleInterface* swatchAccessible(const QString& /*className*/, QObject* object)
{
    auto* const view = dynamic_cast<ColorSwatch*>(object);
    return view != nullptr ? new SwatchAccessible(view) : nullptr;
}

} // namespace

void installSwatchAccessibility()
{
    QAccessible::installFactory(swatchAccessible);
}

} // namespace platform
