// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QSignalSpy>
#include <algorithm>
#include <map>
#include <random>
#include <vector>

#include "base/uuid.h"
#include "livedata/block.h"
#include "presentation/task_list_view_state.h"
#include "ui/task_detail_list_model.h"
#include "ui/task_list_model.h"

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

std::vector<QString> texts(const TaskListModel& model) {
    std::vector<QString> texts;
    for (int row = 0; row < model.rowCount(); ++row) {
        texts.push_back(model.index(row).data(TaskListModel::TextRole).toString());
    }
    return texts;
}

TEST(TaskListModel, TickTouchesOnlyTheTimesOfWhatRuns) {
    Calls calls;
    TaskListModel model;
    const QAbstractItemModelTester tester(&model);
    const auto a = base::Uuid::random();
    const auto b = base::Uuid::random();
    const auto interval = base::Uuid::random();
    model.show({{calls.running(a, "A", "1", interval)}, {calls.idle(b, "B")}});
    auto* intervals = model.index(1).data(TaskListModel::IntervalsRole).value<IntervalListModel*>();
    ASSERT_NE(intervals, nullptr);

    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy moved(&model, &QAbstractItemModel::rowsMoved);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy lineChanged(intervals, &QAbstractItemModel::dataChanged);
    model.show({{calls.running(a, "A", "2", interval)}, {calls.idle(b, "B")}});

    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(changed[0][2].value<QList<int>>(),
              (QList<int>{TaskListModel::TimeSpentRole, TaskListModel::DescriptionRole}));
    EXPECT_EQ(lineChanged.size(), 1);
    EXPECT_EQ(moved.size() + inserted.size() + removed.size(), 0);
    EXPECT_EQ(model.index(1).data(TaskListModel::IntervalsRole).value<IntervalListModel*>(),
              intervals);
}

TEST(TaskListModel, TaskThatStartsMovesAndTakesItsNewActions) {
    Calls calls;
    TaskListModel model;
    const QAbstractItemModelTester tester(&model);
    const auto a = base::Uuid::random();
    const auto b = base::Uuid::random();
    model.show({{}, {calls.idle(a, "A"), calls.idle(b, "B")}});
    EXPECT_EQ(texts(model),
              (std::vector<QString>{"Running", "No tasks in progress.", "Not running", "A", "B"}));
    EXPECT_EQ(model.taskAfter(0), 3);
    EXPECT_EQ(model.taskBefore(3), 3);
    EXPECT_EQ(model.taskNearest(9), 4);

    QSignalSpy moved(&model, &QAbstractItemModel::rowsMoved);
    model.show({{calls.running(b, "B", "0", base::Uuid::random())}, {calls.idle(a, "A")}});
    EXPECT_EQ(texts(model), (std::vector<QString>{"Running", "B", "Not running", "A"}));
    EXPECT_EQ(moved.size(), 1);
    // What finishes goes down past the others, which stay.
    model.show({{calls.running(a, "A", "0", base::Uuid::random())}, {calls.idle(b, "B")}});
    moved.clear();
    const auto c = base::Uuid::random();
    const auto d = base::Uuid::random();
    model.show({{calls.running(a, "A", "0", base::Uuid::random())},
                {calls.idle(b, "B"), calls.idle(c, "C"), calls.idle(d, "D")}});
    model.show(
        {{}, {calls.idle(b, "B"), calls.idle(c, "C"), calls.idle(d, "D"), calls.idle(a, "A")}});
    EXPECT_EQ(moved.size(), 1);
    model.show({{calls.running(b, "B", "0", base::Uuid::random())}, {calls.idle(a, "A")}});
    model.tap(1);
    model.deleteRow(1);
    model.index(1).data(TaskListModel::IntervalsRole).value<IntervalListModel*>()->tapButton(0);
    model.tap(0);
    model.tap(77);
    EXPECT_EQ(calls.made, (std::vector<std::string>{"tap B", "delete B", "finish B"}));
}

TEST(TaskListModel, ActionMayTakeAwayTheRowThatCalledIt) {
    Calls calls;
    TaskListModel model;
    const auto id = base::Uuid::random();
    auto item = calls.running(id, "A", "0", base::Uuid::random());
    int runs = 0;
    item.intervalViewStates[0].onButtonTap = livedata::makeAction([&model, &runs] {
        model.show({});
        ++runs;
    });
    model.show({{item}, {}});
    item = {};
    model.index(1).data(TaskListModel::IntervalsRole).value<IntervalListModel*>()->tapButton(0);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(model.rowCount(), 4);
}

TEST(TaskListModel, AnyStateFollowsAnyOther) {
    // Also with one id several times, as in a damaged store.
    Calls calls;
    TaskListModel model;
    const QAbstractItemModelTester tester(&model);
    std::vector<base::Uuid> ids(8);
    std::ranges::generate(ids, &base::Uuid::random);
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        TaskListViewState::View state;
        std::vector<QString> expected;
        for (int count = static_cast<int>(random() % 8); count > 0; --count) {
            const std::size_t which = random() % ids.size();
            const std::string name = std::to_string(which);
            if (random() % 4 == 0) {
                state.runningItems.push_back(calls.running(ids[which], name, "0", ids[0]));
            } else {
                state.nonRunningItems.push_back(calls.idle(ids[which], name));
            }
        }
        model.show(state);
        std::vector<QString> shown = texts(model);
        std::erase_if(shown, [](const QString& text) { return text.size() > 1; });
        for (const auto& item : state.runningItems) {
            expected.push_back(QString::fromStdString(item.taskName));
        }
        for (const auto& item : state.nonRunningItems) {
            expected.push_back(QString::fromStdString(item.taskName));
        }
        ASSERT_EQ(shown, expected) << round;
        QStringList places;
        for (int row = 0; row < model.rowCount(); ++row) {
            const QString text = model.index(row).data(TaskListModel::DescriptionRole).toString();
            if (!text.isEmpty()) {
                places.append(text);
            }
        }
        for (qsizetype place = 0; place < places.size(); ++place) {
            ASSERT_TRUE(places[place].endsWith(
                QStringLiteral(", %1 of %2").arg(place + 1).arg(expected.size())))
                << places[place].toStdString();
        }
    }
}

TEST(TaskDetailListModel, ShowsTheBeginningOfANoteThatIsTooLong) {
    const auto repeated = [](int count, const std::string& part) {
        std::string text;
        for (int each = 0; each < count; ++each) {
            text += part;
        }
        return text;
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
        model.showNotes({.canAddNote = true,
                         .onAddNoteTapped = nullptr,
                         .committedNotes = {{.id = base::Uuid::random(),
                                             .noteText = note,
                                             .onDeleteCommand = nullptr}},
                         .pendingNote = {}});
        const QString text = model.index(1).data(TaskDetailListModel::TextRole).toString();
        EXPECT_TRUE(text.toStdString() == shown) << note.size();
    }
}

}  // namespace
}  // namespace hearthmark::ui
