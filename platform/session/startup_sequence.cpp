// SPDX-License-Identifier: MIT
#include "platform/session/startup_sequence.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "platform/desktop/x11.h"

namespace hearthmark::platform {

namespace {

// In pieces of what an event holds, the last with the null that ends it.
void broadcast(xcb_connection_t* connection, const std::string& message) {
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const xcb_window_t sender = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, sender, root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 8;
    event.window = sender;
    event.type = x11Atom("_NET_STARTUP_INFO_BEGIN");
    constexpr std::size_t kPiece = std::size(xcb_client_message_data_t{}.data8);
    for (std::size_t sent = 0; sent <= message.size(); sent += kPiece) {
        std::ranges::fill(event.data.data8, uint8_t{0});
        const std::size_t length = std::min(kPiece, message.size() - sent);
        std::copy_n(message.begin() + static_cast<std::ptrdiff_t>(sent), length, event.data.data8);
        xcb_send_event(connection, 0, root, XCB_EVENT_MASK_PROPERTY_CHANGE,
                       reinterpret_cast<const char*>(&event));
        event.type = x11Atom("_NET_STARTUP_INFO");
    }
    xcb_destroy_window(connection, sender);
    xcb_flush(connection);
}

}  // namespace

void endStartupSequence(const std::string& id) {
    xcb_connection_t* const connection = x11Connection();
    if (connection == nullptr || id.empty()) {
        return;
    }
    std::string message = "remove: ID=\"";
    for (const char character : id) {
        if (character == '"' || character == '\\') {
            message += '\\';
        }
        message += character;
    }
    broadcast(connection, message + '"');
}

}  // namespace hearthmark::platform
