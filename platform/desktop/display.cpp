// SPDX-License-Identifier: MIT
#include "platform/desktop/display.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QByteArray>
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace hearthmark::platform {

namespace {

bool hasXServer() {
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool isConnected = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return isConnected;
}

// The socket is where every client looks for it.
bool hasCompositor() {
    if (qEnvironmentVariableIsSet("WAYLAND_SOCKET")) {
        return true;
    }
    QByteArray path = qgetenv("WAYLAND_DISPLAY");
    if (path.isEmpty()) {
        path = "wayland-0";
    }
    if (!path.startsWith('/')) {
        path = qgetenv("XDG_RUNTIME_DIR") + '/' + path;
    }
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(path.size()) >= std::size(address.sun_path)) {
        return false;
    }
    std::ranges::copy(path, std::begin(address.sun_path));
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool isConnected =
        ::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(descriptor);
    return isConnected;
}

bool isChosen(const char* platform) {
    const QByteArray chosen = qgetenv("QT_QPA_PLATFORM");
    return chosen.isEmpty() || chosen.contains(platform);
}

}  // namespace

bool hasDisplay() {
    return (isChosen("xcb") && hasXServer()) || (isChosen("wayland") && hasCompositor());
}

bool isOnWayland() {
    return (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
            qEnvironmentVariableIsSet("WAYLAND_SOCKET")) &&
           hasCompositor();
}

bool canMakeWindows(std::span<char*> arguments) {
    const bool isTold = std::ranges::any_of(arguments, [](std::string_view argument) {
        argument.remove_prefix(argument.starts_with("--") ? 1 : 0);
        return argument.starts_with("-platform") || argument.starts_with("-display");
    });
    return isTold || (!isChosen("xcb") && !isChosen("wayland")) || hasDisplay();
}

}  // namespace hearthmark::platform
