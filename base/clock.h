// SPDX-License-Identifier: MIT
#pragma once

#include "base/date.h"

namespace hearthmark::base {

// Tells the current moment. Whoever needs "now" is given one, so that tests set the time.
class Clock {
 public:
    virtual ~Clock() = default;

    virtual Date now() const = 0;
};

// The machine's wall clock. The only place where its epoch is converted.
class SystemClock final : public Clock {
 public:
    Date now() const override;
};

}  // namespace hearthmark::base
