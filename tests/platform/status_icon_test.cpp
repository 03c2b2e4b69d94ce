// SPDX-License-Identifier: MIT
#include "platform/status_icon.h"

#include <gtest/gtest.h>

#include <limits>

namespace hearthmark::platform {
namespace {

TEST(StatusIcon, TellsTimeLeftRoundedUpAndTimeSpentRoundedDown) {
    struct Row {
        double spent = 0;
        double maximum = 0;
        StatusIconState state;
    };
    for (const Row& row :
         {Row{0, 1800, {"30", 24}}, Row{1, 1800, {"30", 24}}, Row{60, 1800, {"29", 24}},
          Row{899, 1800, {"16", 13}}, Row{1799.9, 1800, {"1", 1}}, Row{1800, 1800, {"0", 0}},
          Row{9999, 1800, {"0", 0}}, Row{0, 5, {"1", 24}}, Row{60, 6000, {"99", 24}},
          Row{0, 6000, {"2h", 24}}, Row{59, 0, {"0", {}}}, Row{5999, 0, {"99", {}}},
          Row{6000, 0, {"1h", {}}}, Row{1e300, 0, {"99h", {}}},
          Row{0, std::numeric_limits<double>::quiet_NaN(), {"99h", 24}}}) {
        EXPECT_EQ(statusIconState({{"", base::Seconds(row.spent), base::Seconds(row.maximum)}}),
                  row.state)
            << row.spent << " of " << row.maximum;
    }
}

TEST(StatusIcon, ChangesOnceAMinute) {
    const auto at = [](int spent) {
        return statusIconState({{"", base::Seconds(spent), base::Seconds(1800)}});
    };
    for (int spent = 1; spent <= 1800; ++spent) {
        EXPECT_EQ(at(spent) == at(spent - 1), spent % 60 != 0) << spent;
    }
}

}  // namespace
}  // namespace hearthmark::platform
