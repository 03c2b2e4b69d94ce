// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>

namespace hearthmark::platform {

// A structure on the bus, as its fields in order.
template <class... Fields>
QDBusArgument& writeStructure(QDBusArgument& argument, const Fields&... fields) {
    argument.beginStructure();
    (argument << ... << fields);
    argument.endStructure();
    return argument;
}

template <class... Fields>
const QDBusArgument& readStructure(const QDBusArgument& argument, Fields&... fields) {
    argument.beginStructure();
    (argument >> ... >> fields);
    argument.endStructure();
    return argument;
}

}  // namespace hearthmark::platform
