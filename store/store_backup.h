// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/calendar.h"

namespace hearthmark::store {

// A copy of the store as it was at one moment.
struct StoreBackup {
    std::filesystem::path file;
    std::chrono::year_month_day day;
    // Of one that was made before a restore; that of a day is of its first start.
    std::optional<std::chrono::seconds> timeOfDay;

    friend bool operator==(const StoreBackup&, const StoreBackup&) = default;
};

// The one that the file is by its name; absent for any other file.
std::optional<StoreBackup> backupIn(const std::filesystem::path& file);

// The day, or the whole moment, as it stands in names.
std::string dateText(const base::LocalTime& moment, bool isDaily);

// Those that need not be kept: neither of the last 7 days, nor the newest of one of the last 4
// weeks or 12 months. Days, weeks from Monday on, and months without a backup do not count.
std::vector<StoreBackup> surplusBackups(const std::vector<StoreBackup>& newestFirst);

}  // namespace hearthmark::store
