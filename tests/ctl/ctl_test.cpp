// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>

#include <random>

#include "ctl/command.h"
#include "ctl/focus_status.h"
#include "ctl/history_report.h"
#include "ctl/program_lock.h"
#include "ctl/range.h"
#include "ctl/status_text.h"
#include "ctl/task_choice.h"
#include "objectstore/file_descriptor.h"
#include "presentation/history_sums.h"
#include "support/test_store.h"

namespace hearthmark::ctl {
namespace {

using namespace std::chrono_literals;
using store::IntervalState;
using tests::at;

}  // namespace

TEST(StatusLine, SaysTheSameInEachForm) {
    struct Row {
        std::optional<FocusStatus> focus;
        const char* plain = nullptr;
        const char* json = nullptr;
        const char* waybar = nullptr;
    };
    const FocusStatus running{.taskId = "T",
                              .taskName = "Write\n\"<a & b>\"\x7f\xff",
                              .intervalId = "I",
                              .start = at(0),
                              .spentBefore = 65.9s,
                              .length = 25min};
    FocusStatus endless = running;
    endless.length = 0s;
    endless.taskName = "";
    FocusStatus interrupted = running;
    interrupted.isInterrupted = true;
    interrupted.taskName = "n";
    FocusStatus odd = endless;
    odd.spentBefore = -100s;
    odd.start = at(3e16);
    odd.length = 10s;
    for (
        const Row& row :
        {Row{{},
             "Nothing runs.\n",
             "{\"state\":\"idle\"}\n",
             "{\"text\":\"\",\"tooltip\":\"Nothing runs.\",\"class\":\"idle\",\"percentage\":0}\n"},
         Row{running, "18:45/25:00 Write \"<a & b>\" \uFFFD\n",
             "{\"state\":\"running\",\"taskId\":\"T\",\"taskName\":\"Write\\n\\\"<a & b>\\\""
             "\x7f\uFFFD\",\"intervalId\":\"I\",\"start\":\"2001-01-01T00:00:00Z\","
             "\"spent\":1125,\"length\":1500,\"rest\":375}\n",
             "{\"text\":\"18:45/25:00\",\"tooltip\":\"Write \\\"&lt;a &amp; b&gt;\\\" \uFFFD\","
             "\"class\":\"running\",\"percentage\":75}\n"},
         Row{endless, "18:45 -\n",
             "{\"state\":\"running\",\"taskId\":\"T\",\"taskName\":null,\"intervalId\":\"I\","
             "\"start\":\"2001-01-01T00:00:00Z\",\"spent\":1125,\"length\":0}\n",
             "{\"text\":\"18:45\",\"tooltip\":\"-\",\"class\":\"running\",\"percentage\":0}\n"},
         Row{interrupted, "Interrupted: 1:05/25:00 n\n",
             "{\"state\":\"interrupted\",\"taskId\":\"T\",\"taskName\":\"n\",\"intervalId\":\"I\","
             "\"start\":\"2001-01-01T00:00:00Z\",\"spent\":65,\"length\":1500,\"rest\":1435}\n",
             "{\"text\":\"1:05/25:00\",\"tooltip\":\"Interrupted: n\",\"class\":\"interrupted\","
             "\"percentage\":4}\n"},
         Row{odd, "-/10 -\n",
             "{\"state\":\"running\",\"taskId\":\"T\",\"taskName\":null,\"intervalId\":\"I\","
             "\"start\":\"950664156-03-16T05:20:00Z\",\"spent\":-100,\"length\":10,\"rest\":110}\n",
             "{\"text\":\"-/10\",\"tooltip\":\"-\",\"class\":\"running\",\"percentage\":0}\n"}}) {
        const auto line = [&row](StatusForm form) { return statusLine(row.focus, at(1060), form); };
        EXPECT_EQ(line(StatusForm::plain), row.plain);
        EXPECT_EQ(line(StatusForm::json), row.json);
        EXPECT_EQ(line(StatusForm::waybar), row.waybar);
    }
    EXPECT_EQ(onOneLine("a\u2028b\u0085c\td\u009B\u00A0äe"), "a b c d \u00A0äe");
}

TEST(TaskChoice, FindsTheOneThatIsMeant) {
    std::vector<store::TaskEntry> tasks;
    const auto add = [&tasks](std::optional<std::string> name, bool isDone = false) {
        tasks.push_back({.key = static_cast<objectstore::RowKey>(tasks.size()),
                         .id = base::Uuid::random(),
                         .name = std::move(name),
                         .creationDate = at(static_cast<double>(tasks.size())),
                         .doneDate = isDone ? std::optional(at(9)) : std::nullopt});
    };
    add("Letters");          // 0
    add("Love letters");     // 1
    add("twice");            // 2
    add("twice");            // 3
    add("Été\n \"now\"");    // 4
    add("letters", true);    // 5
    add("old thing", true);  // 6
    add(std::nullopt);       // 7
    add("no id");            // 8
    tasks.back().id.reset();
    struct Row {
        std::string text;
        int meant;
        std::string said;
    };
    for (const Row& row :
         {Row{"LETTERS", 0, ""}, Row{"love", 1, ""}, Row{"ers lov", 1, ""}, Row{"thing", 6, ""},
          Row{" ete \"NOW\"", 4, ""}, Row{tasks[5].id->text(), 5, ""},
          Row{"twice", -1,
              "2 tasks match \"twice\"; say which by its id or more words:\n" +
                  tasks[3].id->text() + "  twice\n" + tasks[2].id->text() + "  twice"},
          Row{"lette", -1, "2 tasks match"}, Row{"no id", -1, "No task matches \"no id\"."},
          Row{" ", -1, "The name of the task is empty."},
          Row{base::Uuid::random().text(), -1, "No task matches"}}) {
        try {
            EXPECT_EQ(chosenTask(tasks, row.text).key, row.meant) << row.text;
        } catch (const std::runtime_error& error) {
            EXPECT_TRUE(row.meant < 0 && std::string(error.what()).starts_with(row.said))
                << row.text << ": " << error.what();
        }
    }
    EXPECT_EQ(taskLine(tasks[4]), tasks[4].id->text() + "  Été  \"now\"");
    add(std::string(300, 'x'));
    add("--json");
    const auto id = [&tasks](std::size_t place) { return tasks[place].id->text(); };
    EXPECT_EQ(offeredNames(tasks),
              (std::vector<std::string>{id(10), id(9), id(7), "Été  \"now\"", id(3), id(2),
                                        "Love letters", "Letters"}));
}

TEST(Range, IsReadByTheCalendar) {
    using presentation::HistoryUnit;
    using namespace std::chrono;
    struct Row {
        const char* text;
        HistoryUnit unit;
        year_month_day first;
    };
    const auto read = [](const char* text) {
        return rangeFrom(text, 2026y / November / 25, Sunday);
    };
    for (const Row& row : {Row{"day", HistoryUnit::day, 2026y / November / 25},
                           Row{"last-day", HistoryUnit::day, 2026y / November / 24},
                           Row{"week", HistoryUnit::week, 2026y / November / 22},
                           Row{"last-month", HistoryUnit::month, 2026y / October / 1},
                           Row{"2024-02-29", HistoryUnit::day, 2024y / February / 29},
                           Row{"2026-W01", HistoryUnit::week, 2025y / December / 29},
                           Row{"2026-W53", HistoryUnit::week, 2026y / December / 28},
                           Row{"2026-07", HistoryUnit::month, 2026y / July / 1},
                           Row{"0999", HistoryUnit::year, 999y / January / 1}}) {
        EXPECT_EQ(read(row.text), (presentation::HistoryRange{row.unit, row.first})) << row.text;
    }
    for (const char* text : {"", "weeks", "last-", "2026-2", "2026-02-30", "2025-W53", "2026-W00",
                             "2026-13", "20261", "2026-07-", "2026-07-0x", "last-2026", "+026"}) {
        EXPECT_FALSE(read(text)) << text;
    }
}

// In the same order of sums, or seconds would differ.
TEST(HistoryReport, HasTheSumsOfTheHistoryPage) {
    ::setenv("TZ", "UTC", 1);
    std::mt19937 random(22);
    const auto upTo = [&random](double most) {
        return std::uniform_real_distribution(0.0, most)(random);
    };
    tests::TestStore store;
    std::vector<store::Task*> owners(20);
    for (store::Task*& owner : owners) {
        owner = &store.addTask("t");
    }
    for (int made = 0; made < 400; ++made) {
        store.addInterval(
            *owners[random() % owners.size()],
            upTo(1) < 0.1 ? IntervalState::running(at(upTo(1e6))) : IntervalState::finished(),
            base::Seconds(upTo(1e4)), 0s, at(upTo(14 * 86400)));
    }
    const presentation::HistoryRange range{presentation::HistoryUnit::week,
                                           base::kReferenceDay + std::chrono::days(3)};
    const auto starts = partStarts(range, base::LocalCalendar());
    const auto now = at(2e6);
    const auto tasks = store.context().objects<store::Task>();
    std::vector<const store::Task*> pointers;
    for (const store::Task& task : tasks) {
        pointers.push_back(&task);
    }
    const auto settled = presentation::settledSums(tasks, starts, {});
    const auto running = presentation::runningSums(pointers, starts, {}, now);
    store::StoreReader reader(store.directory.path, store::StoreReader::LeftRunning::runs);
    const HistoryReport report =
        historyReport(range, starts, reader.intervals(starts.front(), starts.back()), now);
    ASSERT_EQ(report.parts.size(), settled.parts.size());
    for (std::size_t part = 0; part < report.parts.size(); ++part) {
        EXPECT_EQ(report.parts[part], settled.parts[part] + running.parts[part]) << part;
    }
    std::map<base::Uuid, std::pair<base::Seconds, std::size_t>> expected;
    for (const auto* sums : {&settled, &running}) {
        for (const auto& time : sums->tasks) {
            expected[*time.task->id()].first += time.spent;
            expected[*time.task->id()].second += time.focuses;
        }
    }
    EXPECT_EQ(report.tasks.size(), expected.size());
    for (const auto& time : report.tasks) {
        EXPECT_NEAR(time.spent.count(), expected[*time.id].first.count(), 1e-6);
        EXPECT_EQ(time.focuses, expected[*time.id].second);
    }
}

TEST(ProgramLock, IsSeenAndNeverTaken) {
    const tests::TemporaryDirectory directory;
    const auto file = directory.path / "Hearthmark.lock";
    EXPECT_FALSE(isProgramRunning(directory.path));
    const objectstore::FileDescriptor opened(file, O_CREAT | O_RDWR, 0600);
    EXPECT_FALSE(isProgramRunning(directory.path)) << "open, and not locked";
    const int descriptor = ::open(file.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(descriptor, LOCK_EX | LOCK_NB), 0);
    EXPECT_TRUE(isProgramRunning(directory.path));
    ::close(descriptor);
    EXPECT_FALSE(isProgramRunning(directory.path));
}

}  // namespace hearthmark::ctl
