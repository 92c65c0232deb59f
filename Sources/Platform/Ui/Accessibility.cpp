#include "Accessibility.h"

#include "Button.h"

#include <array>
#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QString>
#include <QWidget>

namespace platform {

namespace {

struct RoleOfClass {
    const char* className;
    QAccessible::Role role;
};

// Buttons are not listed: the toolkit knows them by their base class.
constexpr std::array roles {
    RoleOfClass { "platform::Label", QAccessible::StaticText },
    RoleOfClass { "platform::StatusLine", QAccessible::Notification },
    RoleOfClass { "platform::SegmentedPicker", QAccessible::Grouping },
    RoleOfClass { "platform::PopupMenu", QAccessible::PopupMenu },
    RoleOfClass { "platform::Separator", QAccessible::Separator },
};

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

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    if (object == nullptr || !object->isWidgetType())
        return nullptr;
    for (const auto& entry : roles) {
        if (className == QLatin1String(entry.className))
            return new QAccessibleWidget(static_cast<QWidget*>(object), entry.role);
    }
    // To the toolkit a plain widget is a filler, even as a window. What has no parent yet has no
    // title either.
    auto* widget = static_cast<QWidget*>(object);
    if (className == QLatin1String("QWidget") && !widget->windowTitle().isEmpty())
        return new QAccessibleWidget(widget, QAccessible::Window);
    auto* button = qobject_cast<QAbstractButton*>(object);
    if (button != nullptr && button->parent() != nullptr
        && button->parent()->inherits("platform::PopupMenu"))
        return new ButtonInRole(*button, QAccessible::MenuItem);
    auto* opener = qobject_cast<Button*>(object);
    return opener != nullptr && opener->opensMenu() ? new MenuOpener(*opener) : nullptr;
}

} // namespace

void installAccessibility()
{
    static const auto once = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    static_cast<void>(once);
}

} // namespace platform
