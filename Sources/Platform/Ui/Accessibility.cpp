#include "Accessibility.h"

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
constexpr std::array kRoles {
    RoleOfClass { "platform::Label", QAccessible::StaticText },
    RoleOfClass { "platform::SegmentedPicker", QAccessible::Grouping },
    RoleOfClass { "platform::PopupMenu", QAccessible::PopupMenu },
    RoleOfClass { "platform::Separator", QAccessible::Separator },
};

/// A row of a menu: what a menu offers is an item, not a button.
class MenuRow : public QAccessibleWidget {
public:
    explicit MenuRow(QAbstractButton& row)
        : QAccessibleWidget(&row, QAccessible::MenuItem)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text which) const override
    {
        return which == QAccessible::Name ? row().text() : QAccessibleWidget::text(which);
    }
    [[nodiscard]] QStringList actionNames() const override { return { pressAction() }; }
    void doAction(const QString& name) override
    {
        if (name == pressAction())
            row().click();
    }

private:
    [[nodiscard]] QAbstractButton& row() const { return static_cast<QAbstractButton&>(*widget()); }
};

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    if (object == nullptr || !object->isWidgetType())
        return nullptr;
    for (const auto& entry : kRoles) {
        if (className == QLatin1String(entry.className))
            return new QAccessibleWidget(static_cast<QWidget*>(object), entry.role);
    }
    auto* button = qobject_cast<QAbstractButton*>(object);
    if (button != nullptr && button->parent() != nullptr
        && button->parent()->inherits("platform::PopupMenu"))
        return new MenuRow(*button);
    return nullptr;
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
