// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include "livedata/read_only_current_value_subject.h"

namespace hearthmark::livedata {

namespace {

using Values = std::vector<int>;
using Subject = CurrentValueSubject<int>;

struct Scene {
    Subscription note(Values& values) const {
        return subject->subscribe([&values](int value) { values.push_back(value); });
    }

    std::unique_ptr<Subject> subject = std::make_unique<Subject>(0);
    Values first, second, third;
    std::vector<Subscription> subscriptions;
};

}  // namespace

TEST(CurrentValueSubject, NeverTellsAnOlderValueAfterANewerOneWhateverASubscriberDoes) {
    struct Row {
        const char* what;  // the first subscriber does when it is told 1; 3 is set afterwards
        std::function<void(Scene&)> act;
        Values first, second, third;
    };
    const auto rows = std::to_array<Row>({
        {"nothing", [](Scene&) {}, {0, 1, 3}, {0, 1, 3}, {}},
        {"sets", [](Scene& s) { s.subject->setValue(2); }, {0, 1, 2, 3}, {0, 2, 3}, {}},
        {"subscribes",
         [](Scene& s) { s.subscriptions.push_back(s.note(s.third)); },
         {0, 1, 3},
         {0, 1, 3},
         {1, 3}},
        {"unsubscribes both", [](Scene& s) { s.subscriptions.clear(); }, {0, 1}, {0}, {}},
        {"completes", [](Scene& s) { s.subject->complete(); }, {0, 1}, {0}, {}},
        {"destroys", [](Scene& s) { s.subject.reset(); }, {0, 1}, {0, 1}, {}},
        {"throws", [](Scene&) { throw std::runtime_error(""); }, {0, 1, 3}, {0, 3}, {}},
    });
    for (const Row& row : rows) {
        Scene scene;
        scene.subscriptions.push_back(scene.subject->subscribe([&](int value) {
            scene.first.push_back(value);
            if (value == 1) {
                row.act(scene);
            }
        }));
        scene.subscriptions.push_back(scene.note(scene.second));
        try {
            scene.subject->setValue(1);
        } catch (const std::runtime_error&) {
            EXPECT_STREQ(row.what, "throws");
        }
        if (scene.subject) {
            scene.subject->setValue(3);
        }
        EXPECT_EQ(scene.first, row.first) << row.what;
        EXPECT_EQ(scene.second, row.second) << row.what;
        EXPECT_EQ(scene.third, row.third) << row.what;
    }
}

TEST(CurrentValueSubject, CompletesOnceAndGivesLateSubscribersTheCompletionOnly) {
    CurrentValueSubject<int, std::string> subject(0);
    std::string failures;
    Values values;
    const auto onValue = [&values](int value) { values.push_back(value); };
    const auto onCompletion = [&](const auto& completion) { failures += *completion.failure; };
    const auto early = subject.subscribe(onValue, onCompletion);
    subject.complete({.failure = "a"});
    subject.complete({.failure = "b"});
    const auto late = subject.subscribe(onValue, onCompletion);
    subject.setValue(1);
    EXPECT_EQ(failures, "aa");
    EXPECT_EQ(values, Values{0});
}

TEST(ReadOnlyCurrentValueSubject, HasTheNewValueBeforeAnybodyIsToldAndKeepsTheLast) {
    auto wrapped = std::make_unique<Subject>(5);
    std::unique_ptr<ReadOnlyCurrentValueSubject<int>> subject;
    Values values;
    const auto early =
        wrapped->subscribe([&](int) { values.push_back(subject ? subject->value() : 0); });
    subject = std::make_unique<ReadOnlyCurrentValueSubject<int>>(*wrapped);
    wrapped->setValue(6);
    EXPECT_EQ(values, (Values{0, 6}));
    wrapped.reset();
    EXPECT_EQ(subject->value(), 6);
}

}  // namespace hearthmark::livedata
