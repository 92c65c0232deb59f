// What the kit's own widgets tell assistive technologies.
#pragma once

#include <QAccessible>

class QString;
class QWidget;

namespace platform {

/// A plain widget that holds a number between 0 and 1.
class Adjustable {
public:
    virtual ~Adjustable() = default;

    [[nodiscard]] virtual double adjustedValue() const = 0;
    virtual void adjustTo(double value) = 0;
    /// What 1 is to a reader, who hears whole numbers.
    [[nodiscard]] virtual int mostSpoken() const { return 255; }
};

/// A button that its menu may choose, which keeps the focus of the keyboard to itself.
class Choice {
public:
    virtual ~Choice() = default;

    [[nodiscard]] virtual bool isChosen() const = 0;
};

/// Whether a reader knows a text that is worked out when it asks. What none has read cannot be out
/// of date, so nobody is told that it changed: readers drop what comes in a flood.
class ReadMark {
public:
    void setRead() { isRead_ = true; }
    /// Tells readers of a change, `NameChanged` or `DescriptionChanged`, if they know the old text.
    void tell(QWidget& widget, QAccessible::Event change);

private:
    bool isRead_ = false;
};

/// Sets those texts that differ; the toolkit would announce each as a change.
void setAccessibleTexts(QWidget& widget, const QString& name, const QString& description);

/// Makes the kit's widgets known to readers; the first call counts. Adjustable widgets call it
/// when they are made.
void installAccessibility();

/// Gives a plain widget, which would be a filler to a reader, or a button another role; `NoRole`
/// hides a widget that only repeats the words beside it. To be called while the widget is made, as
/// a reader asks once.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

} // namespace platform
