// SPDX-License-Identifier: MIT
#include "presentation/correct_interval_view_model.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/test_store.h"

namespace hearthmark::presentation {
namespace {

using namespace std::chrono_literals;

base::LocalTime onTheWall(int month, unsigned day, std::chrono::seconds sinceMidnight) {
    return {std::chrono::year(2026) / month / std::chrono::day(day), sinceMidnight};
}

template <class Value>
IntervalForm::Field<Value> typed(std::optional<Value> value) {
    return {.isChanged = true, .value = value};
}

// In Berlin the clocks went back on 25 October 2026 at 3:00 to 2:00, and forward on 29 March.
class CorrectIntervalTest : public testing::Test {
 public:
    CorrectIntervalTest() {
        ::setenv("TZ", "Europe/Berlin", 1);
        store.clock->time = moment(onTheWall(11, 23, 14h));
    }
    ~CorrectIntervalTest() override { ::unsetenv("TZ"); }

 protected:
    base::Date moment(const base::LocalTime& time, std::size_t which = 0) const {
        return calendar->moments(time).at(which);
    }
    CorrectIntervalViewModel model(const std::optional<base::Uuid>& intervalId) const {
        return {store.service, *store.liveData, store.clock, calendar, *task.id(), intervalId};
    }
    IntervalForm form() const {
        return {.taskId = *task.id(), .start = {}, .timeSpent = {}, .length = {}};
    }

    tests::TestStore store;
    std::shared_ptr<base::LocalCalendar> calendar = std::make_shared<base::LocalCalendar>();
    store::Task& task = store.addTask("first");
};

TEST_F(CorrectIntervalTest, SaysWhatIsWrongWithWhatWasChanged) {
    const base::Date begun = moment(onTheWall(11, 23, 12h));
    const base::Uuid finished =
        *store.addInterval(task, store::IntervalState::finished(), 600s, 1800s, begun).id();
    // Half an hour of its two have counted.
    const base::Uuid running =
        *store
             .addInterval(task, store::IntervalState::running(store.clock->time + -600s), 1200s, 0s,
                          begun)
             .id();
    // Ends in the future already.
    const base::Uuid broken =
        *store.addInterval(task, store::IntervalState::finished(), 80000s, 1800s, begun).id();
    struct Row {
        base::Uuid interval;
        std::function<void(IntervalForm&)> type;
        std::string fault;
    };
    const auto start = [](int month, unsigned day, std::chrono::seconds time) {
        return [=](IntervalForm& form) {
            form.start = typed<base::LocalTime>(onTheWall(month, day, time));
        };
    };
    const auto spent = [](base::Seconds seconds) {
        return [=](IntervalForm& form) { form.timeSpent = typed<base::Seconds>(seconds); };
    };
    const auto length = [](std::optional<base::Seconds> seconds) {
        return [=](IntervalForm& form) { form.length = typed<base::Seconds>(seconds); };
    };
    for (const auto& [interval, type, expected] : std::vector<Row>{
             {finished, start(11, 23, 13h + 50min), ""},
             {finished, start(11, 23, 13h + 51min), "start: It would end in the future."},
             {finished, start(11, 23, 14h + 1min), "start: This lies in the future."},
             {finished, start(3, 29, 2h + 30min), "start: The clocks skip this time of day."},
             {finished, [](auto& form) { form.start.isChanged = true; },
              "start: This is not a date and a time of day."},
             {finished,
              [](auto& form) {
                  form.start = typed<base::LocalTime>(base::LocalTime{
                      .day = std::chrono::year(26) / 11 / 23, .sinceMidnight = 12h});
              },
              "start: This lies before the year 1970."},
             {finished, spent(7200s), ""},
             {finished, spent(7201s), "time: There was not so much time since the start."},
             {finished, spent(-1s),
              "time: This is not a time: 25:00 is 25 minutes, 1:30:00 an hour and a half."},
             {finished, length(0s), ""},
             {finished, length(86401s),
              "length: This is not a length from a second to 24 hours; empty means no limit."},
             {finished, length(std::nullopt),
              "length: This is not a length from a second to 24 hours; empty means no limit."},
             {running, start(11, 23, 12h + 30min), ""},
             {running, start(11, 23, 12h + 31min),
              "start: Less than nothing would be left of the time spent."},
             {running, start(11, 22, 12h), ""},
             {running, spent(7201s), "time: There was not so much time since the start."},
             {broken, length(60s), ""},
             {broken, start(11, 23, 11h), "start: It would end in the future."}}) {
        IntervalForm typedForm = form();
        type(typedForm);
        const auto fault = model(interval).check(typedForm).fault;
        const std::array names{"start: ", "time: ", "length: "};
        EXPECT_EQ(fault ? names.at(std::size_t(fault->field)) + fault->reason : "", expected);
        const std::string before = store.sql("SELECT * FROM Interval");
        model(interval).save(typedForm);
        EXPECT_EQ(store.sql("SELECT * FROM Interval") == before, !expected.empty());
        if (expected.empty()) {
            store.service->undo(*store.service->latestChange().value());
        }
    }
    EXPECT_EQ(model(finished).check(form()), CorrectIntervalViewState());
    IntervalForm later = form();
    later.start = typed<base::LocalTime>(onTheWall(11, 23, 12h + 1min));
    EXPECT_EQ(model(finished).check(later).remark, "Overlaps with 2 other intervals.");
}

TEST_F(CorrectIntervalTest, KeepsTheHourOfATimeThatComesTwice) {
    const base::LocalTime twice = onTheWall(10, 25, 2h + 30min);
    ASSERT_EQ(calendar->moments(twice).size(), 2);
    for (const std::size_t which : {std::size_t{0}, std::size_t{1}}) {
        const base::Date begun = moment(twice, which) + 0.5s;
        const base::Uuid id =
            *store.addInterval(task, store::IntervalState::finished(), 60s, 0s, begun).id();
        IntervalForm typedForm = form();
        typedForm.start = typed<base::LocalTime>(onTheWall(10, 25, 2h + 31min));
        model(id).save(typedForm);
        EXPECT_EQ(store.sql("SELECT count(*) FROM Interval WHERE creationDate = " +
                            std::to_string((begun + 60s).sinceReferenceDate().count())),
                  "1");
    }
}

TEST_F(CorrectIntervalTest, AddsAPastIntervalToTheTaskThatIsChosen) {
    const base::Uuid other = *store.addTask("other").id();
    CorrectIntervalViewModel adding = model(std::nullopt);
    EXPECT_EQ(adding.beginning().start, onTheWall(11, 23, 13h + 30min));
    IntervalForm typedForm = form();
    typedForm.taskId = other;
    typedForm.timeSpent = typed<base::Seconds>(900s);
    adding.save(typedForm);
    EXPECT_EQ(store.sql("SELECT name, duration, maxDuration, state, i.creationDate = " +
                        std::to_string(
                            moment(onTheWall(11, 23, 13h + 30min)).sinceReferenceDate().count()) +
                        " FROM Interval i JOIN Task t ON t.pk = i.task "
                        "JOIN RawIntervalState r ON r.interval = i.pk"),
              "other|900.0|0.0|2|1");
}

}  // namespace
}  // namespace hearthmark::presentation
