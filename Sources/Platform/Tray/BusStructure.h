// Records that travel over the bus as structures.
#pragma once

#include <QDBusArgument>

#include <tuple>

namespace platform {

/// Names its `members` in the order of the structure.
template <typename Record>
concept BusStructure = requires
{
    Record::members();
};

template <BusStructure Record>
QDBusArgument& operator<<(QDBusArgument& argument, const Record& record)
{
    argument.beginStructure();
    std::apply([&](auto... member) { (argument << ... << (record.*member)); }, Record::members());
    argument.endStructure();
    return argument;
}

template <BusStructure Record>
const QDBusArgument& operator>>(const QDBusArgument& argument, Record& record)
{
    argument.beginStructure();
    std::apply([&](auto... member) { (argument >> ... >> (record.*member)); }, Record::members());
    argument.endStructure();
    return argument;
}

} // namespace platform
