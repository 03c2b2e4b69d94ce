// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

namespace hearthmark::base {

// What ends the program where it must not continue: a store that cannot be loaded, read or saved.
// Called on the spot, since an exception must not travel through the frames of an event loop.
class FatalErrorHandler {
 public:
    using Report = std::function<void(std::string_view message)>;

    // `report` tells the person; it may block for a moment and must not throw. The message has gone
    // to standard error before.
    explicit FatalErrorHandler(Report report = {});

    // Writes the message, reports it and aborts the process. Nothing else runs: no destructors, no
    // quit hooks, so nothing is written after a failure.
    [[noreturn]] void operator()(std::string_view message) const;

 private:
    Report report_;
};

}  // namespace hearthmark::base
