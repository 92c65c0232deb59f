// What the kit's own widgets tell assistive technologies.
#pragma once

#include <QAccessible>

namespace platform {

/// A plain widget that is pressed like a button, in the role that it has to a reader.
class Pressable {
public:
    explicit Pressable(QAccessible::Role role)
        : pressableRole_(role)
    {
    }
    virtual ~Pressable() = default;

    virtual void press() = 0;
    [[nodiscard]] QAccessible::Role pressableRole() const { return pressableRole_; }

private:
    QAccessible::Role pressableRole_;
};

/// A plain widget that holds a number between 0 and 1.
class Adjustable {
public:
    virtual ~Adjustable() = default;

    [[nodiscard]] virtual double adjustedValue() const = 0;
    virtual void adjustTo(double value) = 0;
};

/// Makes known the roles of the kit's widgets; every such widget calls it, the first call counts.
void installAccessibility();

} // namespace platform
