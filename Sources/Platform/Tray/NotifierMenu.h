// The tray menu as the desktop's tray reads it over the bus ("com.canonical.dbusmenu").
#pragma once

#include "BusStructure.h"
#include "StatusItem.h"

#include <QDBusVariant>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace platform {

/// An entry with its properties and the entries below it: (ia{sv}av).
struct NotifierMenuLayout {
    int id = 0;
    QVariantMap properties;
    QList<QDBusVariant> children;

    static auto members()
    {
        return std::tuple(&NotifierMenuLayout::id, &NotifierMenuLayout::properties,
            &NotifierMenuLayout::children);
    }
};

/// An entry's properties alone: (ia{sv}).
struct NotifierMenuProperties {
    int id = 0;
    QVariantMap properties;

    static auto members()
    {
        return std::tuple(&NotifierMenuProperties::id, &NotifierMenuProperties::properties);
    }
};

/// What happened to an entry: (isvu).
struct NotifierMenuEvent {
    int id = 0;
    QString name;
    QDBusVariant data;
    uint timestamp = 0;

    static auto members()
    {
        return std::tuple(&NotifierMenuEvent::id, &NotifierMenuEvent::name,
            &NotifierMenuEvent::data, &NotifierMenuEvent::timestamp);
    }
};

/// A flat menu whose entries stay the same. Entry numbers start at 1; 0 is the menu itself.
class NotifierMenu : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version CONSTANT)
    Q_PROPERTY(QString TextDirection READ textDirection CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath CONSTANT)

public:
    explicit NotifierMenu(std::vector<StatusItem::MenuEntry> entries);

    [[nodiscard]] uint version() const { return 3; }
    [[nodiscard]] QString textDirection() const { return QStringLiteral("ltr"); }
    [[nodiscard]] QString status() const { return QStringLiteral("normal"); }
    [[nodiscard]] QStringList iconThemePath() const { return {}; }

public Q_SLOTS:
    uint GetLayout(int parent, int depth, const QStringList& names,
        platform::NotifierMenuLayout& layout); // NOLINT: an output of the call
    QList<platform::NotifierMenuProperties> GetGroupProperties(
        const QList<int>& ids, const QStringList& names);
    QDBusVariant GetProperty(int id, const QString& name);
    void Event(int id, const QString& name, const QDBusVariant& data, uint timestamp);
    QList<int> EventGroup(const QList<platform::NotifierMenuEvent>& events);
    bool AboutToShow(int id);
    QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& errors);

Q_SIGNALS:
    void LayoutUpdated(uint revision, int parent);

private:
    void act(int id);
    [[nodiscard]] bool contains(int id) const;
    [[nodiscard]] QVariantMap properties(int id) const;

    std::vector<StatusItem::MenuEntry> entries_;
    uint revision_ = 1;
};

} // namespace platform

Q_DECLARE_METATYPE(platform::NotifierMenuLayout)
Q_DECLARE_METATYPE(platform::NotifierMenuProperties)
Q_DECLARE_METATYPE(platform::NotifierMenuEvent)
