// SPDX-License-Identifier: MIT
#include "ui/text/local_time_text.h"

#include <gtest/gtest.h>

namespace hearthmark::ui {

using namespace std::chrono_literals;

TEST(LocalTimeText, WritesReadsAndStepsTimesAsTheLocaleDoes) {
    const base::LocalTime time{std::chrono::year(2026) / 1 / 31, 13h + 5min + 9s};
    struct Step {
        int cursor;
        const char* text;
    };
    struct Row {
        QLocale locale;
        const char* text;
        const char* withoutSeconds;
        // Upwards, with the cursor in this part.
        std::vector<Step> steps;
    };
    for (const auto& [locale, text, withoutSeconds, steps] :
         std::vector<Row>{{QLocale(QLocale::German),
                           "31.01.2026 13:05:09",
                           " 31.01.2026  13:05",
                           {{0, "01.02.2026 13:05:09"},
                            {2, "01.02.2026 13:05:09"},
                            {4, "28.02.2026 13:05:09"},
                            {10, "31.01.2027 13:05:09"},
                            {12, "31.01.2026 14:05:09"},
                            {15, "31.01.2026 13:06:09"},
                            {19, "31.01.2026 13:05:10"}}},
                          {QLocale(QLocale::English, QLocale::UnitedStates),
                           "1/31/2026 1:05:09 PM",
                           "1/31/2026 1:05 PM",
                           {{1, "2/28/2026 1:05:09 PM"}, {19, "2/1/2026 1:05:09 AM"}}},
                          {QLocale::c(),
                           "31 Jan 2026 13:05:09",
                           "31 Jan 2026 13:05",
                           {{5, "28 Feb 2026 13:05:09"}}}}) {
        const LocalTimeText format(locale);
        EXPECT_EQ(format.text(time), text);
        EXPECT_EQ(format.read(text), time) << text;
        EXPECT_EQ(format.read(withoutSeconds),
                  (base::LocalTime{time.day, time.sinceMidnight - 9s}));
        for (const Step& step : steps) {
            EXPECT_EQ(format.stepped(text, step.cursor, 1), step.text) << step.cursor;
            EXPECT_EQ(format.stepped("31", step.cursor, 1), "31");
        }
        for (const char* unreadable : {"", "31", "2026-02-30 10:00", "31.02.2026 10:00"}) {
            EXPECT_FALSE(format.read(unreadable)) << unreadable;
        }
    }
}

}  // namespace hearthmark::ui
