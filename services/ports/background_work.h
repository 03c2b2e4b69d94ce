// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <stop_token>

namespace hearthmark::services {

// Does one piece of work at a time beside the main thread. Main thread.
class BackgroundWork {
 public:
    using Work = std::function<void(const std::stop_token&)>;

    virtual ~BackgroundWork() = default;

    // Runs the work on a thread of its own, and then what is to follow on the main thread, not
    // within the call. The work looks at its token and ends early once it is to stop. Requires: no
    // other work goes on.
    virtual void run(Work work, std::function<void()> whenDone) = 0;

    // Tells the work to stop; what is to follow comes nevertheless, once it has ended.
    virtual void stop() = 0;
};

}  // namespace hearthmark::services
