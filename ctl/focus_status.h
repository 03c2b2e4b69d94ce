// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "base/date.h"

namespace hearthmark::ctl {

// The focus that the program tells of: the newest running one of a task.
struct FocusStatus {
    // Empty where the store has none.
    std::string taskId;
    std::string taskName;
    std::string intervalId;
    // Of the running stretch.
    base::Date start{base::Seconds(0)};
    // Before that stretch.
    base::Seconds spentBefore{0};
    // 0 for no limit.
    base::Seconds length{0};
    // The program was ended by force: nothing runs, and all that is known to have been spent is
    // spent before.
    bool isInterrupted = false;

    bool operator==(const FocusStatus&) const = default;
};

base::Seconds timeSpent(const FocusStatus& focus, base::Date now);

// As the store in the directory has it, whether or not the program runs. Absent where nothing runs.
// Throws StoreError.
std::optional<FocusStatus> focusInStore(const std::filesystem::path& directory);

}  // namespace hearthmark::ctl
