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

TEST(IntervalState, IsEqualHashedAndWrittenByCaseAndDates) {
    const auto rows = std::to_array<std::pair<IntervalState, const char*>>(
        {{IntervalState::paused(), R"({"paused":{}})"},
         {IntervalState::finished(), R"({"finished":{}})"},
         {IntervalState::running(at(1.5)), R"({"running":{"started":1.5}})"},
         {IntervalState::running(at(2.5)), R"({"running":{"started":2.5}})"},
         {IntervalState::running(at(2.5), at(2.5)), R"({"running":{"started":2.5,"visited":2.5}})"},
         {IntervalState::running(at(-0.25), at(784111777.1234567)),
          R"({"running":{"started":-0.25,"visited":784111777.1234567}})"}});
    std::set<std::size_t> hashes;
    for (const auto& [state, json] : rows) {
        EXPECT_EQ(encodeIntervalState(state), json);
        EXPECT_EQ(state.hash(), decodeIntervalState(json).hash());
        hashes.insert(state.hash());
        for (const auto& [other, otherJson] : rows) {
            EXPECT_EQ(decodeIntervalState(json) == other, json == otherJson) << json;
        }
    }
    EXPECT_EQ(hashes.size(), rows.size());
    EXPECT_EQ(decodeIntervalState(R"({"running":{"started":1,"visited":null},"other":[]})"),
              IntervalState::running(at(1)));
    EXPECT_THROW(encodeIntervalState(IntervalState::running(at(HUGE_VAL))), std::domain_error);
}

TEST(IntervalState, IsNotReadFromWhatIsWrongAndItSaysWhere) {
    using Kind = DecodingError::Kind;
    struct Row {
        const char* json;
        Kind kind;
        std::string path;
        std::string_view description;
    };
    constexpr std::string_view kKeys = "Invalid number of keys found, expected one.";
    for (const Row& row : std::vector<Row>{
             {"{}", Kind::typeMismatch, "", kKeys},
             {R"({"paused":{},"running":{},"finished":{}})", Kind::typeMismatch, "", kKeys},
             {"[]", Kind::typeMismatch, "", ""},
             {"{", Kind::dataCorrupted, "", ""},
             {R"({"running":{"started":1e999}})", Kind::dataCorrupted, "", ""},
             {R"({"paused":null})", Kind::typeMismatch, "paused ", ""},
             {R"({"running":{}})", Kind::keyNotFound, "running started ", ""},
             {R"({"running":{"started":null}})", Kind::typeMismatch, "running started ", ""},
             {R"({"running":{"started":1,"visited":""}})", Kind::typeMismatch, "running visited ",
              ""}}) {
        try {
            decodeIntervalState(row.json);
            ADD_FAILURE() << row.json;
        } catch (const DecodingError& error) {
            std::string path;
            for (const std::string& key : error.codingPath()) {
                path += key + ' ';
            }
            EXPECT_EQ(error.kind(), row.kind) << row.json;
            EXPECT_EQ(path, row.path) << row.json;
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
