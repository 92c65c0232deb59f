#include "Accessibility.h"

#include "Button.h"
#include "Label.h"

#include <QAccessibleWidget>

#include <utility>

namespace platform {

namespace {

constexpr const char* roleProperty = "accessibleRole";

/// A button that to a reader is something else.
class ButtonInRole : public QAccessibleWidget {
public:
    ButtonInRole(QAbstractButton& button, QAccessible::Role role)
        : QAccessibleWidget(&button, role)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text which) const override
    {
        const auto text = QAccessibleWidget::text(which);
        return which == QAccessible::Name && text.isEmpty() ? button().text() : text;
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        auto state = QAccessibleWidget::state();
        if (const auto* choice = dynamic_cast<const Choice*>(widget())) {
            state.focusable = state.selectable = true;
            state.focused = state.selected = choice->isChosen();
            state.checkable = button().isCheckable();
            state.checked = button().isChecked();
        }
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override { return { pressAction() }; }
    void doAction(const QString& name) override
    {
        if (name == pressAction())
            button().click();
    }

protected:
    [[nodiscard]] QAbstractButton& button() const
    {
        return static_cast<QAbstractButton&>(*widget());
    }
};

/// The button of a menu says that there is one, and whether it is open.
class MenuOpener : public ButtonInRole {
public:
    explicit MenuOpener(Button& button)
        : ButtonInRole(button, QAccessible::ButtonMenu)
    {
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        auto state = ButtonInRole::state();
        const bool isOpen = static_cast<Button&>(button()).isMenuOpen();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = isOpen;
        state.collapsed = !isOpen;
        return state;
    }
};

/// A widget in a role of its own. One that hands the focus on neither has nor takes it.
class WidgetInRole : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    [[nodiscard]] QAccessible::State state() const override
    {
        auto state = QAccessibleWidget::state();
        if (widget()->focusProxy() != nullptr)
            state.focusable = state.focused = false;
        return state;
    }
};

class LabelInRole : public QAccessibleWidget {
public:
    LabelInRole(Label& label, QAccessible::Role role)
        : QAccessibleWidget(&label, role)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text which) const override
    {
        return which == QAccessible::Name ? static_cast<Label*>(widget())->readText()
                                          : QAccessibleWidget::text(which);
    }
};

class AdjustableWidget : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    AdjustableWidget(QWidget& widget, Adjustable& adjustable)
        : QAccessibleWidget(&widget, QAccessible::Slider)
        , adjustable_(adjustable)
    {
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QVariant currentValue() const override
    {
        return qRound(adjustable_.adjustedValue() * adjustable_.mostSpoken());
    }
    void setCurrentValue(const QVariant& value) override
    {
        adjustable_.adjustTo(value.toDouble() / adjustable_.mostSpoken());
    }
    [[nodiscard]] QVariant minimumValue() const override { return 0; }
    [[nodiscard]] QVariant maximumValue() const override { return adjustable_.mostSpoken(); }
    [[nodiscard]] QVariant minimumStepSize() const override { return 1; }

private:
    Adjustable& adjustable_;
};

class HiddenFromReaders : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    [[nodiscard]] QAccessible::State state() const override
    {
        auto state = QAccessibleWidget::state();
        state.invisible = true;
        return state;
    }
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    if (object == nullptr || !object->isWidgetType())
        return nullptr;
    auto* widget = static_cast<QWidget*>(object);
    if (const auto set = widget->property(roleProperty); set.isValid()) {
        const auto role = static_cast<QAccessible::Role>(set.toInt());
        if (role == QAccessible::NoRole)
            return new HiddenFromReaders(widget);
        if (auto* button = qobject_cast<QAbstractButton*>(object))
            return new ButtonInRole(*button, role);
        if (auto* label = qobject_cast<Label*>(object))
            return new LabelInRole(*label, role);
        return new WidgetInRole(widget, role);
    }
    if (auto* adjustable = dynamic_cast<Adjustable*>(widget))
        return new AdjustableWidget(*widget, *adjustable);
    auto* opener = qobject_cast<Button*>(object);
    return opener != nullptr && opener->opensMenu() ? new MenuOpener(*opener) : nullptr;
}

} // namespace

void ReadMark::tell(QWidget& widget, QAccessible::Event change)
{
    if (!std::exchange(isRead_, false))
        return;
    QAccessibleEvent event(&widget, change);
    QAccessible::updateAccessibility(&event);
}

void setAccessibleTexts(QWidget& widget, const QString& name, const QString& description)
{
    if (widget.accessibleName() != name)
        widget.setAccessibleName(name);
    if (widget.accessibleDescription() != description)
        widget.setAccessibleDescription(description);
}

void installAccessibility()
{
    QAccessible::installFactory(makeInterface);
}

void setAccessibleRole(QWidget& widget, QAccessible::Role role)
{
    installAccessibility();
    widget.setProperty(roleProperty, static_cast<int>(role));
}

} // namespace platform
