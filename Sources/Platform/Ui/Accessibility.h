// What the kit's own widgets tell assistive technologies.
#pragma once

#include <QAccessible>

class QWidget;

namespace platform {

/// A plain widget that holds a number between 0 and 1.
class Adjustable {
public:
    virtual ~Adjustable() = default;

    [[nodiscard]] virtual double adjustedValue() const = 0;
    virtual void adjustTo(double value) = 0;
};

/// Makes the kit's widgets known to readers; the first call counts. Adjustable widgets call it
/// when they are made.
void installAccessibility();

/// Gives a plain widget, which would be a filler to a reader, or a button another role; `NoRole`
/// hides what says nothing that is not said in words beside it. To be called while the widget is
/// made, as a reader asks once.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

} // namespace platform
