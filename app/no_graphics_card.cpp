// SPDX-License-Identifier: MIT
//
// The toolkit's Wayland client draws title bars, where the compositor leaves that to programs, only
// if it can also draw by a graphics card; and when it looks for one it loads the card's driver with
// its compiler, which takes more memory than all of this program. Nothing here is drawn by a card.
// So the few calls by which the client looks for one end here, in the place of the system's
// library: they find one, by which nothing can be drawn.
#include <cstdint>

namespace {

constexpr unsigned kTrue = 1;

}  // namespace

// NOLINTBEGIN(readability-identifier-naming): the library's names
extern "C" {

[[gnu::visibility("default")]] void* eglGetPlatformDisplay(unsigned /*platform*/, void* /*of*/,
                                                           const std::intptr_t* /*attributes*/) {
    static int display = 0;
    return &display;
}

[[gnu::visibility("default")]] unsigned eglInitialize(void* /*display*/, int* major, int* minor) {
    *major = 1;
    *minor = 5;
    return kTrue;
}

[[gnu::visibility("default")]] const char* eglQueryString(void* /*display*/, int /*name*/) {
    return "";
}

[[gnu::visibility("default")]] unsigned eglTerminate(void* /*display*/) {
    return kTrue;
}

}  // extern "C"
// NOLINTEND(readability-identifier-naming)
