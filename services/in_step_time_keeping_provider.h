// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>

#include "base/date.h"
#include "services/ports/time_keeping.h"

namespace hearthmark::services {

// Timers that repeat at the same interval fire one right after the other, whenever they were made,
// so that texts beside each other change together and the process wakes once for all. For that the
// first firing may come sooner than an interval from now. Only a timer that was alone takes the
// step of the next one: what looks for work all the time that of what shows the seconds of a focus.
// All else is as the given provider has it. A copy is in step with what it was made of. Outlived
// by its timers.
class InStepTimeKeepingProvider final : public TimeKeepingProviderProtocol {
 public:
    explicit InStepTimeKeepingProvider(
        std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider);

    std::shared_ptr<TimeKeeping> makeTimer(base::Seconds interval, Repeats repeats,
                                           std::function<void()> action) override;

    // While they rest, timers that repeat do not fire, those of copies neither; when that ends,
    // each fires at once.
    void setResting(bool areResting);

 private:
    class Beat;
    struct Beats {
        std::map<base::Seconds, std::shared_ptr<Beat>> ofInterval;
        bool areResting = false;
    };

    std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::shared_ptr<Beats> beats_;
};

}  // namespace hearthmark::services
