#include "Accessibility.h"

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
constexpr RoleOfClass kRoles[] = {
    { "platform::Label", QAccessible::StaticText },
    { "platform::SegmentedPicker", QAccessible::Grouping },
    { "platform::PopupMenu", QAccessible::PopupMenu },
    { "platform::Separator", QAccessible::Separator },
};

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    if (object == nullptr || !object->isWidgetType())
        return nullptr;
    for (const auto& entry : kRoles) {
        if (className == QLatin1String(entry.className))
            return new QAccessibleWidget(static_cast<QWidget*>(object), entry.role);
    }
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
