// SPDX-License-Identifier: MIT
#include "services/focus_service.h"

#include <gtest/gtest.h>

#include <limits>

#include "services/focus.h"
#include "store/interval.h"
#include "store/undo_history.h"
#include "support/test_store.h"

namespace hearthmark::services {

using store::IntervalState;
using namespace std::chrono_literals;
using tests::at;

namespace {

using Reason = FocusRefusal::Reason;

struct FocusServiceTest : testing::Test {
    void observe() {
        service = std::make_shared<FocusService>(store.service, *store.liveData, store.clock);
        service->startObserving(
            {.changed = [this] { told += "changed "; },
             .started = [this](const auto& focus) { told += "started " + focus.taskName + " "; },
             .finished =
                 [this](const auto& focus) {
                     told += "finished " + focus.taskName + " " +
                             std::to_string(static_cast<int>(focus.spent.count())) + " ";
                 }});
    }

    // Since the last look.
    std::string news() { return std::exchange(told, {}); }

    template <class Value>
    static std::optional<Reason> refusal(const FocusAnswer<Value>& answer) {
        const auto* const refused = std::get_if<FocusRefusal>(&answer);
        return refused != nullptr ? std::optional(refused->reason) : std::nullopt;
    }
    std::string found(const std::string& words) const {
        std::string names;
        const auto answer = service->findTasks(words);
        for (const FoundTask& each : std::get<0>(answer)) {
            names += each.name + (each.isDone ? "(done) " : " ");
        }
        return names;
    }

    tests::TestStore store;
    store::Task& task = store.addTask("Letters");
    const std::string id = task.id()->text();
    std::string told;
    std::shared_ptr<FocusService> service;
};

}  // namespace

TEST_F(FocusServiceTest, TellsEachChangeOnceAndOnlyWhatIsNewAsStarted) {
    store.addInterval(task, IntervalState::paused(), 60s);
    store::UndoHistory history(store.service);
    store.service->resumePausedIntervals();
    observe();
    ASSERT_TRUE(service->running()) << "what the launch let go on is there";
    const base::Uuid first = service->running()->intervalId;
    struct Step {
        std::function<void()> act;
        std::string expected;
    };
    base::Uuid second;
    base::Uuid other;
    const auto run = [&] {
        store::Task& mail = store.addTask("Mail");
        other = *mail.id();
        second =
            *store.addInterval(mail, IntervalState::running(store.clock->time), 0s, 600s, at(500))
                 .id();
    };
    auto& operations = *store.service;
    const std::vector<Step> steps{
        {[&] { store.clock->time = at(1010); }, ""},
        {[&] { operations.markRunningIntervalsVisited(at(1010)); }, ""},
        {[&] {
             operations.addNote({at(1), base::Uuid::random(), "n"}, *task.id());
         },
         ""},
        {[&] { operations.createTask("other"); }, ""},
        {[&] { operations.renameTask(*task.id(), "Post"); }, "changed "},
        {[&] { operations.extendInterval(first, *task.id(), 300s); }, "changed "},
        {[&] { operations.correctInterval(first, *task.id(), {.timeSpent = 5s}); }, "changed "},
        {[&] { operations.excludeTime(at(1005), at(1010)); }, "changed "},
        {[&] { history.undo(); }, "changed "},
        {run, "changed started Mail "},
        {[&] { operations.deleteInterval(second, other); }, "changed "},
        {[&] { history.undo(); }, "changed "},
        {[&] { operations.finishInterval(first, *task.id()); }, "finished Post 65 "},
        {[&] { operations.deleteTask(other); }, "changed "},
        {[&] { history.undo(); }, "changed "},
        {[&] { store.clock->time = at(2000), operations.finishDueIntervals(); },
         "changed finished Mail 990 "},
        {run, "changed started Mail "},
        {[&] { operations.pauseRunningIntervals(); }, "changed "},
    };
    for (std::size_t index = 0; index < steps.size(); ++index) {
        steps[index].act();
        EXPECT_EQ(news(), steps[index].expected) << "step " << index;
    }
    EXPECT_EQ(service->running(), std::nullopt);
}

TEST_F(FocusServiceTest, RefusesWithoutAnyChangeWhatCannotBe) {
    observe();
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    constexpr double kEndless = std::numeric_limits<double>::infinity();
    const auto start = [this](const std::string& on, double length) {
        return refusal(service->start(on, base::Seconds(length)));
    };
    const std::string unknown = base::Uuid::random().text();
    store.addTask("other");
    const std::string before = store.sql("SELECT COUNT(*), MAX(pk) FROM Task");
    for (const double length : {kNan, kEndless, -kEndless, -1.0, 0.0, 0.4, 86400.6, 1e300}) {
        EXPECT_EQ(start(id, length), Reason::invalidArgument) << length;
        EXPECT_EQ(refusal(service->extend(base::Seconds(length))), Reason::invalidArgument);
    }
    for (const std::string& on : {unknown, id + "0", std::string(), std::string("Letters")}) {
        EXPECT_EQ(start(on, 60), Reason::noSuchTask) << on;
        EXPECT_EQ(refusal(service->addNote(on, "a")), Reason::noSuchTask);
    }
    const std::string longest(FocusControl::kLongestName * 2, '\xd7');
    std::string hebrew = longest;
    for (std::size_t odd = 1; odd < hebrew.size(); odd += 2) {
        hebrew[odd] = '\x90';
    }
    for (const std::string& text : {std::string(" \n "), std::string(1'000'001, 'a')}) {
        EXPECT_EQ(refusal(service->addTask(text)), Reason::invalidArgument);
        EXPECT_EQ(refusal(service->addNote(id, text)), Reason::invalidArgument);
    }
    EXPECT_EQ(refusal(service->addTask(hebrew + "a")), Reason::invalidArgument);
    EXPECT_EQ(refusal(service->findTasks(std::string(201, 'a'))), Reason::invalidArgument);
    EXPECT_EQ(refusal(service->finish()), Reason::nothingRuns);
    EXPECT_EQ(refusal(service->extend(60s)), Reason::nothingRuns);
    EXPECT_EQ(news() + store.sql("SELECT COUNT(*), MAX(pk) FROM Task"), before);
    EXPECT_EQ(store.sql("SELECT (SELECT COUNT(*) FROM Note) + (SELECT COUNT(*) FROM Interval)"),
              "0");

    EXPECT_FALSE(refusal(service->addTask(" " + hebrew + " "))) << "characters count, not bytes";
    EXPECT_EQ(store.sql("SELECT MAX(LENGTH(name)) FROM Task"), "10000");
    EXPECT_FALSE(start(id, 86400.4));
    EXPECT_EQ(service->running()->length, 86400s);
    EXPECT_EQ(start(id, 60), Reason::focusRunning);
    EXPECT_EQ(std::get<0>(service->extend(59.6s)), 86460s);
    EXPECT_EQ(std::get<0>(service->finish()).text(), store.sql("SELECT id FROM Interval"));
    store.addInterval(task, IntervalState::running(at(1000)), 0s, 0s);
    EXPECT_EQ(refusal(service->extend(60s)), Reason::invalidArgument) << "it has no length";
}

TEST_F(FocusServiceTest, FindsTasksByNameTheNewestFirstAndNoMoreThanAHundred) {
    store.addTask("Müll hinaus", at(300));
    store.service->markTaskDone(*store.addTask("MULL", at(200)).id());
    observe();
    EXPECT_EQ(found("mull"), "Müll hinaus MULL(done) ");
    EXPECT_EQ(found(" AUS  mü"), "Müll hinaus ");
    EXPECT_EQ(found(""), "Müll hinaus MULL(done) Letters ");
    EXPECT_EQ(found("note"), "");
    std::string cut;
    for (std::size_t characters = 1; characters < FocusControl::kLongestName; ++characters) {
        cut += "é";
    }
    store.service->renameTask(*task.id(), cut + "éé");
    EXPECT_EQ(found("é"), cut + "… ");
    for (int more = 0; more < 120; ++more) {
        store.service->createTask("x");
    }
    EXPECT_EQ(found("x").size(), 200);
}

}  // namespace hearthmark::services
