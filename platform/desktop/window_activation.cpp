// SPDX-License-Identifier: MIT
#include "platform/desktop/window_activation.h"

#include <xcb/xcb.h>

#include <QByteArray>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <cstdint>

#include "platform/desktop/x11.h"
#include "platform/session/activation_token.h"

namespace hearthmark::platform {

namespace {

using namespace std::chrono_literals;

// How long a compositor may take to do as a token says.
constexpr auto kPatience = 300ms;

// As a panel asks, which speaks for the person as the program does here. The toolkit asks as a
// program that comes forward by itself, which GNOME and others only mark then.
void activateForPerson(xcb_connection_t* connection, const QWindow& window) {
    constexpr uint32_t kForPerson = 2;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = static_cast<xcb_window_t>(window.winId());
    event.type = x11Atom("_NET_ACTIVE_WINDOW");
    event.data.data32[0] = kForPerson;
    event.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(connection, 0, xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(connection);
}

void showAnew(QWindow& window) {
    if (window.isActive() || !window.isVisible()) {
        return;
    }
    const Qt::WindowStates states = window.windowStates();
    window.setVisible(false);
    window.setWindowStates(states);
    window.setVisible(true);
}

}  // namespace

void bringToFront(QWindow& window, const std::string& activationToken) {
    const bool wasVisible = window.isVisible();
    window.setVisible(true);
    // Maximised as it may be beside that.
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.raise();
    const std::string own = takeActivationToken();
    const std::string& token = activationToken.empty() ? own : activationToken;
    if (!token.empty()) {
        // Where the toolkit's Wayland plugin looks for it.
        qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token));
    }
    window.requestActivate();
    // It was for this window alone, not for what the program starts.
    qunsetenv("XDG_ACTIVATION_TOKEN");
    xcb_connection_t* const x11 = x11Connection();
    if (wasVisible && x11 != nullptr) {
        activateForPerson(x11, window);
    } else if (wasVisible) {
        QTimer::singleShot(token.empty() ? 0ms : kPatience, &window,
                           [&window] { showAnew(window); });
    }
}

}  // namespace hearthmark::platform
