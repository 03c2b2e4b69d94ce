// SPDX-License-Identifier: MIT
#include "store/interval_state.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

#include "store/interval_state_coding.h"
#include "support/test_store.h"

namespace hearthmark::store {

using namespace std::chrono_literals;
using tests::at;

TEST(IntervalState, IsEqualAndHashesAlikeByCaseAndDates) {
    const auto states = std::to_array<IntervalState>(
        {IntervalState::paused(), IntervalState::finished(), IntervalState::running(at(1)),
         IntervalState::running(at(2)), IntervalState::running(at(1), at(1)),
         IntervalState::running(at(1), at(2))});
    std::set<std::size_t> hashes;
    for (const IntervalState& a : states) {
        for (const IntervalState& b : states) {
            EXPECT_EQ(a == b, &a == &b);
        }
        EXPECT_EQ(a.hash(), IntervalState(a).hash());
        hashes.insert(a.hash());
    }
    EXPECT_EQ(hashes.size(), std::size(states));
}

TEST(IntervalStateCoding, WritesOneKeyAndReadsBackTheSameState) {
    const auto rows = std::to_array<std::pair<IntervalState, const char*>>({
        {IntervalState::paused(), R"({"paused":{}})"},
        {IntervalState::finished(), R"({"finished":{}})"},
        {IntervalState::running(at(1.5)), R"({"running":{"started":1.5}})"},
        {IntervalState::running(at(-0.25), at(784111777.1234567)),
         R"({"running":{"started":-0.25,"visited":784111777.1234567}})"},
    });
    for (const auto& [state, json] : rows) {
        EXPECT_EQ(encodeIntervalState(state), json);
        EXPECT_EQ(decodeIntervalState(json), state) << json;
    }
    EXPECT_EQ(decodeIntervalState(R"({"running":{"started":1,"visited":null},"other":[]})"),
              IntervalState::running(at(1)));
    EXPECT_THROW(encodeIntervalState(IntervalState::running(at(HUGE_VAL))), std::domain_error);
}

TEST(IntervalStateCoding, SaysWhatIsWrongAndWhere) {
    using Kind = DecodingError::Kind;
    struct Row {
        const char* json;
        Kind kind;
        std::vector<std::string> path;
        std::string_view description;
    };
    constexpr std::string_view kKeys = "Invalid number of keys found, expected one.";
    constexpr std::string_view kAny;
    const auto rows = std::to_array<Row>({
        {"{}", Kind::typeMismatch, {}, kKeys},
        {R"({"paused":{},"finished":{}})", Kind::typeMismatch, {}, kKeys},
        {R"({"paused":{},"running":{},"finished":{}})", Kind::typeMismatch, {}, kKeys},
        {"[]", Kind::typeMismatch, {}, kAny},
        {"{", Kind::dataCorrupted, {}, kAny},
        {R"({"running":{"started":1e999}})", Kind::dataCorrupted, {}, kAny},
        {R"({"paused":null})", Kind::typeMismatch, {"paused"}, kAny},
        {R"({"running":{}})", Kind::keyNotFound, {"running", "started"}, kAny},
        {R"({"running":{"started":null,"visited":""}})",
         Kind::typeMismatch,
         {"running", "started"},
         kAny},
        {R"({"running":{"started":1,"visited":""}})",
         Kind::typeMismatch,
         {"running", "visited"},
         kAny},
    });
    for (const Row& row : rows) {
        try {
            decodeIntervalState(row.json);
            ADD_FAILURE() << row.json;
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.kind(), row.kind) << row.json;
            EXPECT_EQ(error.codingPath(), row.path) << row.json;
            EXPECT_TRUE(error.debugDescription().starts_with(row.description)) << row.json;
        }
    }
}

TEST(Interval, FinishesWithNothingWhereNoDateSaysMore) {
    tests::TestStore store;
    Interval& interval = store.addInterval(store.addTask("a"), IntervalState::paused(), 5s);
    interval.rawState()->setVisited(at(110));
    interval.finish();
    EXPECT_EQ(interval.duration(), base::Seconds(5s)) << "it did not run";
    EXPECT_EQ(interval.rawState()->visited(), at(110));
    interval.rawState()->setVisited(std::nullopt);
    interval.finish();
    EXPECT_EQ(interval.duration(), base::Seconds(0s));
    EXPECT_EQ(interval.intervalState(), IntervalState::finished());
    interval.setDuration(5s);
    interval.setRawState(nullptr);
    EXPECT_EQ(interval.intervalState(), std::nullopt);
    EXPECT_EQ(interval.totalDuration(at(5000)), base::Seconds(5s));
    interval.finish();
    EXPECT_EQ(interval.duration(), base::Seconds(0s));
}

}  // namespace hearthmark::store
