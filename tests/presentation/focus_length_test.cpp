// SPDX-License-Identifier: MIT
#include "presentation/focus_length.h"

#include <gtest/gtest.h>

#include "support/test_store.h"

namespace hearthmark::presentation {

using namespace std::chrono_literals;
using store::IntervalState;
using tests::at;
using Reading = TypedLength::Reading;

TEST(ReadLength, TakesWhatPeopleWriteAndNothingThatMayMeanSomethingElse) {
    const auto rows = std::to_array<std::pair<const char*, base::Seconds>>({
        {"25", 25min},
        {" 25 \u00a0", 25min},
        {"25:00", 25min},
        {"1:30", 90s},
        {"90:00", 90min},
        {"0:01", 1s},
        {"1:30:00", 90min},
        {"24:00:00", 24h},
        {"1440", 24h},
        {"25 min", 25min},
        {"90MIN", 90min},
        {"1.5 h", 90min},
        {"1,5 h", 90min},
        {"45 s", 45s},
        {"1 h 30 min", 90min},
        {"1h30m5s", 5405s},
        {"2 Hours 1 second", 7201s},
        {"0.1 min", 6s},
    });
    for (const auto& [text, length] : rows) {
        EXPECT_EQ(readLength(text), (TypedLength{Reading::length, length})) << text;
    }
    for (const auto text : {"", "  "}) {
        EXPECT_EQ(readLength(text).reading, Reading::blank);
    }
    for (const auto text : {"a",       "25:61",      "25:60",       "1:5",          "1:005",
                            "1:60:00", "1:00:60",    "1:00:00:00",  ":30",          "25:",
                            "1.5",     "-5",         "25-",         "2 5",          "5 x",
                            "h",       "30 min 1 h", "5 min 5 min", "1.5 h 30 min", "1 h 30.5 min",
                            "1 h 30",  "1. h",       ".5 h",        "1..5 h",       "25:00 min",
                            "\xff",    "1 h,"}) {
        EXPECT_EQ(readLength(text).reading, Reading::noLength) << text;
    }
    for (const auto& text :
         {std::string("0"), std::string("0:00"), std::string("0.4 s"), std::string("24:00:01"),
          std::string("1441"), std::string("24.1 h"), std::string(500, '9')}) {
        EXPECT_EQ(readLength(text).reading, Reading::outOfRange) << text;
    }
}

TEST(NewestOwnLengths, AreThoseOfAllTasksNewestFirstEachOnce) {
    tests::TestStore store;
    const auto lengths = [&store] {
        std::string text;
        for (const base::Seconds length :
             newestOwnLengths(store.context().objects<store::Task>())) {
            text += std::to_string(std::lround(length.count())) + ' ';
        }
        return text;
    };
    EXPECT_EQ(lengths(), "");
    store::Task& a = store.addTask("a");
    store::Task& b = store.addTask("b");
    double created = 0;
    const auto add = [&](store::Task& task, double length) {
        store.addInterval(task, IntervalState::finished(), 1s, base::Seconds(length),
                          at(++created));
    };
    for (const double length : {10., 20., 30.}) {
        add(a, length);
    }
    for (const double length : {1800., 3600., 0., 86401., 40.5, -7.}) {
        add(b, length);
    }
    EXPECT_EQ(lengths(), "30 20 10 ");
    add(b, 10);
    store.addInterval(b, IntervalState::running(at(1)), 0s, 5s, at(2.5));
    EXPECT_EQ(lengths(), "10 30 5 20 ");
    for (const double length : {50., 60., 50., 70.}) {
        add(a, length);
    }
    EXPECT_EQ(lengths(), "70 50 60 10 30 ");
}

}  // namespace hearthmark::presentation
