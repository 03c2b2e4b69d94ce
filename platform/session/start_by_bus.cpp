// SPDX-License-Identifier: MIT
#include "platform/session/start_by_bus.h"

#include <unistd.h>

#include <QByteArray>
#include <fstream>
#include <string>

namespace hearthmark::platform {

namespace {

// A terminal or a panel that the bus has started hands its environment on to all that it starts. So
// the parent counts as well: the bus itself, or the system's manager, which may start services for
// it.
bool isParentBus() {
    std::ifstream file("/proc/" + std::to_string(getppid()) + "/comm");
    std::string name;
    std::getline(file, name);
    return name == "dbus-daemon" || name == "systemd";
}

}  // namespace

bool takeStartByBus() {
    const bool isSaid = qgetenv("DBUS_STARTER_BUS_TYPE") == "session";
    qunsetenv("DBUS_STARTER_BUS_TYPE");
    qunsetenv("DBUS_STARTER_ADDRESS");
    // Where a person has chosen to start it, panels say so; the bus does not.
    const bool isChosen = !qEnvironmentVariableIsEmpty("DESKTOP_STARTUP_ID") ||
                          !qEnvironmentVariableIsEmpty("XDG_ACTIVATION_TOKEN");
    return isSaid && !isChosen && isParentBus();
}

}  // namespace hearthmark::platform
