#include "NotifierMenu.h"

#include <QDBusMetaType>
#include <QTimer>

namespace platform {

NotifierMenu::NotifierMenu(std::vector<StatusItem::MenuEntry> entries)
    : entries_(std::move(entries))
{
    qDBusRegisterMetaType<NotifierMenuLayout>();
    qDBusRegisterMetaType<NotifierMenuProperties>();
    qDBusRegisterMetaType<QList<NotifierMenuProperties>>();
    qDBusRegisterMetaType<NotifierMenuEvent>();
    qDBusRegisterMetaType<QList<NotifierMenuEvent>>();
}

bool NotifierMenu::contains(int id) const
{
    return id >= 1 && static_cast<std::size_t>(id) <= entries_.size();
}

QVariantMap NotifierMenu::properties(int id) const
{
    if (!contains(id))
        return { { QStringLiteral("children-display"), QStringLiteral("submenu") } };
    const auto& entry = entries_[static_cast<std::size_t>(id - 1)];
    // An underscore would mark the next letter as the entry's key.
    const auto label
        = QString::fromStdString(entry.title).replace(QStringLiteral("_"), QStringLiteral("__"));
    QVariantMap properties { { QStringLiteral("label"), label },
        { QStringLiteral("enabled"), true }, { QStringLiteral("visible"), true } };
    if (entry.isOn) {
        properties[QStringLiteral("toggle-type")] = QStringLiteral("checkmark");
        properties[QStringLiteral("toggle-state")] = entry.isOn() ? 1 : 0;
    }
    return properties;
}

uint NotifierMenu::GetLayout(
    int parent, int depth, const QStringList& /*names*/, NotifierMenuLayout& layout)
{
    layout = { parent, properties(parent), {} };
    if (parent == 0 && depth != 0)
        for (int id = 1; contains(id); ++id)
            layout.children.append(
                QDBusVariant(QVariant::fromValue(NotifierMenuLayout { id, properties(id), {} })));
    return revision_;
}

QList<NotifierMenuProperties> NotifierMenu::GetGroupProperties(
    const QList<int>& ids, const QStringList& /*names*/)
{
    QList<NotifierMenuProperties> group;
    for (const int id : ids)
        group.append({ id, properties(id) });
    return group;
}

QDBusVariant NotifierMenu::GetProperty(int id, const QString& name)
{
    // A variant on the bus cannot be empty.
    return QDBusVariant(properties(id).value(name, QString()));
}

void NotifierMenu::Event(
    int id, const QString& name, const QDBusVariant& /*data*/, uint /*timestamp*/)
{
    if (!contains(id) || name != QStringLiteral("clicked"))
        return;
    // Later, so that the tray has its answer before an action that ends the process.
    QTimer::singleShot(0, this, [this, id] { act(id); });
}

void NotifierMenu::act(int id)
{
    const auto& entry = entries_[static_cast<std::size_t>(id - 1)];
    entry.action();
    if (entry.isOn)
        Q_EMIT LayoutUpdated(++revision_, /*parent=*/0);
}

QList<int> NotifierMenu::EventGroup(const QList<NotifierMenuEvent>& events)
{
    QList<int> unknown;
    for (const auto& event : events) {
        if (contains(event.id))
            Event(event.id, event.name, event.data, event.timestamp);
        else if (event.id != 0)
            unknown.append(event.id);
    }
    return unknown;
}

bool NotifierMenu::AboutToShow(int /*id*/)
{
    return /*needsUpdate=*/false;
}

QList<int> NotifierMenu::AboutToShowGroup(const QList<int>& /*ids*/, QList<int>& errors)
{
    errors.clear();
    return {};
}

} // namespace platform
