// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <QSignalSpy>
#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <iterator>
#include <random>
#include <vector>

#include "base/uuid.h"
#include "livedata/block.h"
#include "presentation/task_list_view_state.h"
#include "ui/detail/task_detail_list_model.h"
#include "ui/list/task_list_model.h"
#include "ui/text/began_text.h"

namespace hearthmark::ui {
namespace {

using presentation::TaskListViewState;

// What is deleted later is deleted when this goes, the last of a test.
struct Calls {
    Calls() = default;
    Calls(const Calls&) = delete;
    Calls& operator=(const Calls&) = delete;
    ~Calls() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    int argc = 0;
    QCoreApplication application{argc, nullptr};
    std::vector<std::string> made;

    livedata::Action action(std::string name) {
        return livedata::makeAction([this, name = std::move(name)] { made.push_back(name); });
    }

    TaskListViewState::NonRunningItem idle(const base::Uuid& id, const std::string& name) {
        return {.isSelected = false,
                .onDeleteCommand = action("delete " + name),
                .taskId = id,
                .taskName = name,
                .timeSpent = "0",
                .button = "Finish",
                .onItemTapped = action("tap " + name)};
    }

    TaskListViewState::RunningItem running(const base::Uuid& id, const std::string& name,
                                           const std::string& time, const base::Uuid& interval) {
        return {.isSelected = false,
                .taskId = id,
                .intervalViewStates = {{.button = "Finish",
                                        .intervalId = interval,
                                        .onButtonTap = action("finish " + name),
                                        .onDeleteCommand = action("delete " + name),
                                        .timeSpent = time,
                                        .progress = 0}},
                .taskName = name,
                .timeSpent = time,
                .onItemTapped = action("tap " + name)};
    }
};

std::shared_ptr<const TaskListViewState::Match> match(
    const std::string& name, const std::vector<base::TextRange>& marked,
    const std::optional<TaskListViewState::FoundText>& note = std::nullopt) {
    return std::make_shared<const TaskListViewState::Match>(
        TaskListViewState::Match{.name = {.text = name, .marked = marked}, .note = note});
}

QVariant fieldOf(const QAbstractItemModel& model, int row, const char* role) {
    return model.index(row, 0).data(model.roleNames().key(role));
}

std::vector<QString> texts(const TaskListModel& model) {
    std::vector<QString> texts;
    for (int row = 0; row < model.rowCount(); ++row) {
        texts.push_back(fieldOf(model, row, "text").toString());
    }
    return texts;
}

IntervalListModel& intervalsOfFirst(const TaskListModel& model) {
    return *fieldOf(model, 1, "intervalViewStates").value<IntervalListModel*>();
}

TEST(TaskListModel, TickTouchesOnlyTheTimesOfWhatRuns) {
    Calls calls;
    TaskListModel model;
    const std::array<base::Uuid, 3> ids{base::Uuid::random(), base::Uuid::random(),
                                        base::Uuid::random()};
    const auto tick = [&](const char* time) {
        model.show({{calls.running(ids[0], "A", time, ids[2])}, {calls.idle(ids[1], "B")}});
    };
    tick("1");
    IntervalListModel& intervals = intervalsOfFirst(model);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy lineChanged(&intervals, &QAbstractItemModel::dataChanged);
    tick("2");
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(changed[0][2].value<QList<int>>(),
              (QList<int>{TaskListModel::kDescriptionRole, model.roleNames().key("timeSpent")}));
    EXPECT_EQ(lineChanged.size(), 1);
    EXPECT_EQ(&intervalsOfFirst(model), &intervals);
}

TEST(TaskListModel, MovesOnlyWhatStartsOrFinishesAndCallsItsNewActions) {
    Calls calls;
    TaskListModel model;
    const auto a = calls.idle(base::Uuid::random(), "A");
    const auto b = calls.idle(base::Uuid::random(), "B");
    const auto c = calls.idle(base::Uuid::random(), "C");
    model.show({{}, {a, b, c}});
    EXPECT_EQ(texts(model), (std::vector<QString>{"Running", "No tasks in progress.", "Not running",
                                                  "A", "B", "C"}));
    EXPECT_EQ(model.stopAfter(0), 3);
    EXPECT_EQ(model.stopBefore(3), 3);
    EXPECT_EQ(model.stopNearest(9), 5);
    QSignalSpy moved(&model, &QAbstractItemModel::rowsMoved);
    auto running = calls.running(a.taskId, "A", "0", base::Uuid::random());
    // An action may take away the row that called it.
    running.intervalViewStates[0].onButtonTap = livedata::makeAction([&] {
        model.show({{}, {b, c, a}});
        calls.made.emplace_back("finish A");
    });
    model.show({{running}, {b, c}});
    running = {};
    EXPECT_EQ(texts(model), (std::vector<QString>{"Running", "A", "Not running", "B", "C"}));
    EXPECT_EQ(moved.size(), 1);
    model.tap(1);
    model.deleteRow(1);
    model.tap(0);
    model.tap(77);
    intervalsOfFirst(model).tapButton(0);
    EXPECT_EQ(calls.made, (std::vector<std::string>{"tap A", "delete A", "finish A"}));
    EXPECT_EQ(texts(model).back(), "A");
    EXPECT_EQ(moved.size(), 2) << "past the others, which stay";
}

TEST(TaskListModel, AnyStateFollowsAnyOther) {
    // Also with one id several times, as in a damaged store, with what is done folded or not, and
    // with a search or without.
    Calls calls;
    TaskListModel model;
    const QAbstractItemModelTester tester(&model);
    std::vector<base::Uuid> ids(200);
    std::ranges::generate(ids, &base::Uuid::random);
    std::mt19937 random(7);
    bool isUnfolded = false;
    const auto isDone = [](const auto& item) { return item.doneDate.has_value(); };
    for (int round = 0; round < 300; ++round) {
        TaskListViewState::View state;
        std::vector<TaskListViewState::NonRunningItem> idle;
        if (random() % 2 == 0) {
            state.matchCount = 0;
        }
        // Two large states differ in more places than are told one by one.
        const std::size_t most = round % 4 == 0 ? 8 : 300;
        for (auto count = random() % most; count > 0; --count) {
            const std::size_t which = random() % std::min(most, ids.size());
            const std::string name = std::to_string(which);
            if (random() % 4 == 0) {
                state.runningItems.push_back(calls.running(ids[which], name, "0", ids[0]));
            } else {
                idle.push_back(calls.idle(ids[which], name));
                if (random() % 3 == 0) {
                    idle.back().doneDate = base::Date(base::Seconds(random() % 4));
                }
                if (random() % 2 == 0) {
                    idle.back().match = match(name, {});
                }
            }
        }
        state.nonRunningItems = livedata::SharedList(idle);
        model.show(state);
        std::vector<TaskListViewState::NonRunningItem> done;
        std::erase_if(idle, [&](const auto& item) { return state.matchCount && !item.match; });
        std::ranges::copy_if(idle, std::back_inserter(done), isDone);
        std::erase_if(idle, isDone);
        if (random() % 4 == 0 && !done.empty() && !state.matchCount) {
            const std::vector<QString> before = texts(model);
            const auto fold =
                std::ranges::find(before, QStringLiteral("Done (%1)").arg(done.size()));
            model.tap(static_cast<int>(fold - before.begin()));
            isUnfolded = !isUnfolded;
        }
        const bool isDoneShown = isUnfolded || state.matchCount;
        const std::size_t shown =
            state.runningItems.size() + idle.size() + (isDoneShown ? done.size() : 0);
        QStringList expected;
        int number = 0;
        const auto expect = [&](const auto& items, const QString& kind) {
            for (const auto& item : items) {
                expected += QStringLiteral("%1 0, %2 of %3%4%5")
                                .arg(QString::fromStdString(item.taskName))
                                .arg(++number)
                                .arg(shown)
                                .arg(kind, item.match ? ", matches" : "");
            }
        };
        expect(state.runningItems, "");
        expect(idle, "");
        if (!done.empty() && !state.matchCount) {
            expected +=
                QStringLiteral("Done (%1) %2folded").arg(done.size()).arg(isDoneShown ? "un" : "");
        }
        if (isDoneShown) {
            std::ranges::stable_sort(done, std::greater(),
                                     &TaskListViewState::NonRunningItem::doneDate);
            expect(done, ", done");
        }
        QStringList rows;
        for (int row = 0; row < model.rowCount(); ++row) {
            const QString place = fieldOf(model, row, "description").toString();
            if (!place.isEmpty()) {
                rows += fieldOf(model, row, "text").toString() + ' ' + place;
            }
        }
        ASSERT_EQ(rows, expected) << round;
    }
}

TEST(TaskListModel, ShowsWhatASearchFindsAndWhereAsItIsWritten) {
    Calls calls;
    TaskListModel model;
    const QString onlyHints = "Running|No tasks in progress.|Not running|";
    const auto shown = [&] {
        const std::vector<QString> all = texts(model);
        return QStringList(all.begin(), all.end()).join('|');
    };
    TaskListViewState::View state{.runningItems = {}, .nonRunningItems = {}, .matchCount = 0};
    model.show(state);
    EXPECT_TRUE(shown().startsWith(onlyHints + "Add your first task")) << "there really is none";
    auto item = calls.idle(base::Uuid::random(), "a");
    state.nonRunningItems = {item};
    model.show(state);
    EXPECT_EQ(shown(), onlyHints + "No matches");
    EXPECT_EQ(model.firstMatch(), -1);
    struct Row {
        std::string text;
        std::vector<base::TextRange> ranges;
        QString marked;
    };
    for (const Row& row : std::vector<Row>{
             {" a  <i> & \n\u00e9 ",
              {{1, 2}, {11, 13}},
              "&nbsp;<b>a</b>&nbsp;&nbsp;&lt;i&gt;&nbsp;&amp;&nbsp;<br><b>\u00e9</b>&nbsp;"},
             {std::string(3999, 'x') + "\u00e9y",
              {{3999, 4001}, {4001, 4002}},
              QString(3999, 'x') + "<b>\u00e9</b>"},
             {"\xff"
              "a",
              {{1, 2}},
              "\ufffd<b>a</b>"}}) {
        item.match = match(row.text, row.ranges);
        state.nonRunningItems = {item};
        model.show(state);
        EXPECT_EQ(model.firstMatch(), 3);
        EXPECT_EQ(fieldOf(model, 3, "markedName"), row.marked);
        EXPECT_EQ(fieldOf(model, 3, "foundLine"), "");
    }
    item.match = match("a", {}, TaskListViewState::FoundText{"<line>", {{1, 5}}});
    state.nonRunningItems = {item};
    model.show(state);
    EXPECT_EQ(fieldOf(model, 3, "foundLine"), "&lt;<b>line</b>&gt;");
    EXPECT_EQ(fieldOf(model, 3, "description"), "0, 1 of 1, in a note: <line>");
}

TEST(TaskDetailListModel, ShowsTheBeginningOfANoteThatIsTooLong) {
    const auto repeated = [](int count, std::string_view part) {
        return QString::fromUtf8(part.data()).repeated(count).toStdString();
    };
    TaskDetailListModel model;
    for (const auto& [note, shown] : std::vector<std::pair<std::string, std::string>>{
             {"", ""},
             {repeated(499, "a\n") + "b", repeated(499, "a\n") + "b"},
             {repeated(501, "a\n"), repeated(499, "a\n") + "a…"},
             {std::string("\n") + repeated(500, "a\n"),
              std::string("\n") + repeated(498, "a\n") + "a…"},
             {repeated(19'999, "a") + "🍅", repeated(19'999, "a") + "…"},
             {repeated(20'000, "é"), repeated(20'000, "é")},
             {repeated(30'000, "é"), repeated(20'000, "é") + "…"}}) {
        model.showNotes({{.id = base::Uuid::random(),
                          .noteText = note,
                          .onDeleteCommand = nullptr,
                          .creationDate = {}}});
        const QString text = fieldOf(model, 1, "text").toString();
        EXPECT_TRUE(text.toStdString() == shown) << note.size();
        EXPECT_EQ(fieldOf(model, 1, "isCut"), note != shown);
        EXPECT_TRUE(model.wholeText(1).toStdString() == note);
    }
}

TEST(TaskDetailListModel, SaysWhenARowBeganAsOfToday) {
    qputenv("TZ", "Asia/Kolkata");
    QLocale::setDefault(QLocale(QStringLiteral("en_GB")));
    const auto at = [](const char* time) {
        const auto unixTime = double(QDateTime::fromString(time, Qt::ISODate).toSecsSinceEpoch());
        return base::Date(base::Seconds(unixTime) - base::kUnixTimeOfReferenceDate);
    };
    TaskDetailListModel model;
    std::vector<presentation::TaskDetailViewState::NonRunningInterval> intervals;
    for (const std::optional<base::Date>& began : {std::optional(at("2026-11-20T14:05:59")),
                                                   {at("2025-11-20T00:00:00")},
                                                   {},
                                                   {base::Date(base::Seconds(INFINITY))}}) {
        intervals.push_back({.intervalId = base::Uuid::random(),
                             .onDeleteCommand = nullptr,
                             .totalTimeSpent = {},
                             .creationDate = began,
                             .rest = base::Seconds(60)});
    }
    model.showIntervals(livedata::SharedList(std::move(intervals)));
    model.showNotes({{.id = base::Uuid::random(),
                      .noteText = {},
                      .onDeleteCommand = nullptr,
                      .creationDate = at("2026-11-19T23:59:00")}});
    EXPECT_EQ(fieldOf(model, 0, "continueText"), "Continue 1:00");
    EXPECT_EQ(fieldOf(model, 5, "continueText"), "");
    const auto shown = [&model] {
        QStringList texts;
        for (const int row : {0, 1, 2, 3, 5}) {
            texts += fieldOf(model, row, "began").toString();
        }
        return texts.join(u'|');
    };
    model.showToday(at("2026-11-20T00:00:00"));
    EXPECT_EQ(shown(), "14:05|Thu 20 Nov 2025, 00:00|||Thu 19 Nov, 23:59");
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.showToday(at("2026-11-20T00:00:00"));
    EXPECT_EQ(changed.size(), 0);
    model.showToday(at("2027-01-01T00:00:00"));
    EXPECT_EQ(shown(), "Fri 20 Nov 2026, 14:05|Thu 20 Nov 2025, 00:00|||Thu 19 Nov 2026, 23:59");
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), 5);
    EXPECT_EQ(changed[0][2].value<QList<int>>(), QList<int>{model.roleNames().key("began")});
    qputenv("TZ", "UTC");
    tzset();
    EXPECT_TRUE(shown().startsWith("Fri 20 Nov, 08:35|")) << "the year is not over there";
    qunsetenv("TZ");
}

TEST(DayAndTime, IsInTheOrderOfTheLanguageWithTheYearWhereItIsAnother) {
    const QDateTime moment(QDate(2026, 11, 20), QTime(14, 5));
    for (const auto& [language, sameYear, otherYear] : std::vector<std::array<const char*, 3>>{
             {"en_GB", "ddd d MMM", "ddd d MMM yyyy"},
             {"en_US", "ddd MMM d", "ddd MMM d, yyyy"},
             {"es", "ddd d 'de' MMM", "ddd d 'de' MMM 'de' yyyy"},
             {"ja", "M月d日ddd", "yyyy年M月d日ddd"},
             {"lv", "ddd d. MMM", "ddd yyyy. 'gada' d. MMM"},
             {"ru", "ddd d MMM", "ddd d MMM yyyy 'г'."}}) {
        const QLocale locale{QString(language)};
        const QString time = locale.toString(moment.time(), QLocale::ShortFormat);
        const auto expected = [&](const char* format) {
            return locale.toString(moment.date(), QString(format)) + ", " + time;
        };
        EXPECT_EQ(dayAndTime(moment, QDate(2026, 11, 20), locale), time);
        EXPECT_EQ(dayAndTime(moment, QDate(2026, 1, 1), locale), expected(sameYear)) << language;
        // Some versions of the locale data have another space before the "г." than others.
        EXPECT_EQ(dayAndTime(moment, QDate(2027, 1, 1), locale).simplified(),
                  expected(otherYear).simplified())
            << language;
    }
    EXPECT_EQ(dayAndTime(moment, QDate(2026, 1, 1), QLocale::c()), "Fri 20 Nov, 14:05");
}

}  // namespace
}  // namespace hearthmark::ui
