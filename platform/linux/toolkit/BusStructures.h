#pragma once

#include <QDBusArgument>

namespace zv {

/// Writes a structure with these members, in their order.
template <class... Members> QDBusArgument& writeStructure(QDBusArgument& argument, Members const&... members)
{
    argument.beginStructure();
    (argument << ... << members);
    argument.endStructure();
    return argument;
}

template <class... Members> QDBusArgument const& readStructure(QDBusArgument const& argument, Members&... members)
{
    argument.beginStructure();
    (argument >> ... >> members);
    argument.endStructure();
    return argument;
}

} // namespace zv
