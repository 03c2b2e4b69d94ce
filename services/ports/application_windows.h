// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

namespace hearthmark::services {

class ApplicationWindow {
 public:
    virtual ~ApplicationWindow() = default;

    // Shows it before all others, also where another program is being used.
    virtual void orderFrontRegardless() = 0;
    // Has the keyboard's input go to it.
    virtual void makeKeyWindow() = 0;
};

// The windows of this program, hidden ones included. Main thread.
class ApplicationWindows {
 public:
    virtual ~ApplicationWindows() = default;

    virtual std::vector<std::shared_ptr<ApplicationWindow>> windows() const = 0;
};

}  // namespace hearthmark::services
