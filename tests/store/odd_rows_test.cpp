// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/shown_text.h"
#include "support/test_store.h"

namespace hearthmark::store {
namespace {

constexpr base::Date kNow = tests::at(1000);

// What no program of ours writes reads as absent, and the rest is shown, and exported, as it is.
TEST(OddRows, AreShownWithoutWhatCannotBeRead) {
    struct Row {
        // The list, today's time, the pane of the task and its notes.
        const char* shown;
        std::vector<const char*> changes;
    };
    const std::vector<Row> rows = {
        {"a 1:05 (1:05/30:00 Finish) |\n1:05 (1:05)\na 1:05 1:05/30:00+ |\nn \n",
         {"", "UPDATE RawIntervalState SET visited = 'yesterday'",
          "UPDATE RawIntervalState SET visited = 9e999", "UPDATE Task SET creationDate = 3.2e16",
          "UPDATE Task SET creationDate = x'00'",
          "INSERT INTO RawIntervalState (state, started, interval) VALUES (1, 1, 99)",
          "INSERT INTO Interval VALUES (9, NULL, NULL, 1, 1, 99)",
          "INSERT INTO Note VALUES (9, 'no identifier', 1, 'x', 1), (8, NULL, 1, 'x', 99)"}},
        {"| a 5 Finish\n5 (5)\n+a 5 |\nn \n",
         {"UPDATE RawIntervalState SET state = 7", "UPDATE RawIntervalState SET state = -1",
          // 1 in the lowest 16 bits.
          "UPDATE RawIntervalState SET state = 65537",
          "UPDATE RawIntervalState SET state = 'running'",
          "UPDATE RawIntervalState SET started = NULL",
          "UPDATE RawIntervalState SET started = -9e999",
          "UPDATE RawIntervalState SET started = 'now'",
          "UPDATE RawIntervalState SET interval = 99", "DELETE FROM RawIntervalState"}},
        {"| a 0 Finish\n(0)\n+a 0 |\nn \n",
         {"UPDATE Interval SET task = 99", "UPDATE Interval SET task = 'first'",
          "DELETE FROM Interval"}},
        {"a 1:00 (1:00/30:00 Finish) |\n1:00 (1:00)\na 1:00 1:00/30:00+ |\nn \n",
         {"UPDATE Interval SET duration = x'00'", "UPDATE Interval SET duration = 'long'"}},
        {"a - (- Finish) |\n- (-)\na - -+ |\nn \n",
         {"UPDATE Interval SET duration = 9e999", "UPDATE Interval SET duration = 1e300",
          "UPDATE Interval SET duration = -100", "UPDATE RawIntervalState SET started = -3.2e16"}},
        {"a 5 (5/30:00 Finish) |\n5 (5)\na 5 5/30:00+ |\nn \n",
         {"UPDATE RawIntervalState SET started = 3.2e16"}},
        {"a 1:05 (1:05/0 Finish) |\n1:05 (1:05)\na 1:05 1:05/0 |\nn \n",
         {"UPDATE Interval SET maxDuration = 'long'"}},
        {"a 1:05 (1:05 Finish) |\n1:05 (1:05)\na 1:05 1:05+ |\nn \n",
         {"UPDATE Interval SET maxDuration = 9e999"}},
        {"a 1:05 (1:05 Finish) |\n1:05 (1:05)\na 1:05 1:05 |\nn \n",
         {"UPDATE Interval SET maxDuration = -1"}},
        {"a 1:05 (1:05/30:00 Finish) |\n(0)\na 1:05 1:05/30:00+ |\nn \n",
         {"UPDATE Interval SET creationDate = 3.2e16", "UPDATE Interval SET creationDate = 'x'"}},
        {"- 1:05 (1:05/30:00 Finish) |\n1:05 (1:05)\n- 1:05 1:05/30:00+ |\nn \n",
         {"UPDATE Task SET name = NULL", "UPDATE Task SET name = x'41'"}},
        {"a 1:05 |\n1:05 (1:05)\na 1:05 |\nn \n", {"UPDATE Interval SET id = 'none'"}},
        {"a 1:05 (1:05/30:00 Finish) |\n1:05 (1:05)\na 1:05 1:05/30:00+ |\n- \n",
         {"UPDATE Note SET text = x'41'", "UPDATE Note SET text = NULL"}},
        {"|\n1:05 (1:05)\n- - |\n\n", {"UPDATE Task SET id = 'none'"}},
    };
    for (const Row& row : rows) {
        for (const char* change : row.changes) {
            tests::TestStore store;
            Task& task = store.addTask("a");
            store.addInterval(task, IntervalState::running(tests::at(940)), base::Seconds(5));
            store.service->addNote({kNow, base::Uuid::random(), "n"}, *task.id());
            store.reopen(change);
            const std::string shown = tests::shownText(store.container, kNow);
            EXPECT_TRUE(shown.starts_with(row.shown)) << change << '\n' << shown;
        }
    }
}

TEST(OddRows, MayBeLongAndMany) {
    tests::TestStore store;
    store.service->addNote({kNow, base::Uuid::random(), "n"}, *store.addTask("long").id());
    store.addTask("many");
    store.reopen(
        "UPDATE Task SET name = hex(zeroblob(5000000)) WHERE pk = 1; "
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) "
        "INSERT INTO Note SELECT i + 1, printf('%08x-0000-4000-8000-000000000000', i), i, 'n', 2 "
        "FROM n");
    const std::string shown = tests::shownText(store.container, kNow);
    const std::string half(5'000'000, '0');
    EXPECT_NE(shown.find("\n+" + half + half + " 0 |\nn \n{\"id\""), shown.npos);
    const std::string many = "\n+many 0 |\n";
    const auto notes = shown.find(many) + many.size();
    EXPECT_EQ(shown.find('\n', notes) - notes, 100'000 * std::string_view("n ").size());
}

}  // namespace
}  // namespace hearthmark::store
