// SPDX-License-Identifier: MIT
#pragma once

#include "base/date.h"
#include "ctl/descriptor.h"

namespace hearthmark::ctl {

// Fires once at a moment of the wall clock, and whenever somebody has set that clock or the machine
// has woken: what was awaited may then be long over, or far away.
class SecondTimer {
 public:
    SecondTimer();

    void setTo(base::Date moment);
    void stop();

    int descriptor() const { return descriptor_.get(); }
    // To be called when the descriptor can be read.
    void acknowledge();

 private:
    Descriptor descriptor_;
};

}  // namespace hearthmark::ctl
