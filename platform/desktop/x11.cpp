// SPDX-License-Identifier: MIT
#include "platform/desktop/x11.h"

#include <QGuiApplication>

namespace hearthmark::platform {

xcb_connection_t* x11Connection() {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

xcb_atom_t x11Atom(std::string_view name) {
    const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        x11Connection(),
        xcb_intern_atom(x11Connection(), 0, static_cast<uint16_t>(name.size()), name.data()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace hearthmark::platform
