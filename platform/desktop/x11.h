// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace hearthmark::platform {

struct FreeingX11Reply {
    void operator()(void* reply) const { std::free(reply); }  // NOLINT(*-no-malloc): xcb's own
};
// What xcb answered; null where it did not.
template <class Reply>
using X11Reply = std::unique_ptr<Reply, FreeingX11Reply>;

// The toolkit's connection; null where the window system is another one. Requires a
// QGuiApplication.
xcb_connection_t* x11Connection();

// Requires the connection.
xcb_atom_t x11Atom(std::string_view name);

}  // namespace hearthmark::platform
