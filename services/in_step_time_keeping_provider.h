// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>

#include "base/date.h"
#include "services/time_keeping.h"

namespace hearthmark::services {

// Timers that repeat at the same interval fire one right after the other, whenever they were made,
// so that texts beside each other change together. The first firing may come sooner than an
// interval from now, for that; all else is as the given provider has it. A copy is in step with
// what it was made of. Outlived by its timers.
class InStepTimeKeepingProvider final : public TimeKeepingProviderProtocol {
 public:
    explicit InStepTimeKeepingProvider(
        std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider);

    std::shared_ptr<TimeKeeping> makeTimer(base::Seconds interval, Repeats repeats,
                                           std::function<void()> action) override;

 private:
    class Beat;

    std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider_;
    std::shared_ptr<std::map<base::Seconds, std::shared_ptr<Beat>>> beats_;
};

}  // namespace hearthmark::services
