// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <regex>

#include "export/csv_task_share_serializer.h"
#include "export/json_share_serializer.h"
#include "support/test_store.h"

namespace hearthmark::exporting {

struct SerializersTest : testing::Test {
    std::string json() { return JSONShareSerializer().serialize(store.first<store::Task>()); }
    std::string csv() { return CSVTaskShareSerializer().serialize(store.first<store::Task>()); }
    tests::TestStore store;
};

TEST_F(SerializersTest, WriteEveryFieldInItsPlace) {
    store.reopen(
        "INSERT INTO Task VALUES (1, 'a0000000-0000-4000-8000-00000000000f', 725760000.125, 'T/1', "
        "NULL);"
        "INSERT INTO Interval VALUES (1, 'B0000000-0000-4000-8000-000000000000', 0, 5, 1800.5, 1);"
        "INSERT INTO RawIntervalState VALUES (1, 1, 725760061.75, 725760090, 1);");
    EXPECT_EQ(json(), R"({
  "id" : "A0000000-0000-4000-8000-00000000000F",
  "creationDate" : 725760000.125,
  "name" : "T\/1",
  "intervals" : [
    {
      "id" : "B0000000-0000-4000-8000-000000000000",
      "creationDate" : 0,
      "duration" : 5,
      "maxDuration" : 1800.5,
      "state" : {
        "started" : 725760061.75,
        "state" : 1
      }
    }
  ],
  "notes" : [

  ]
})");
    EXPECT_EQ(
        csv(),
        R"(id,creationDate,name,interval.id,interval.creationDate,interval.duration,interval.maxDuration,interval.rawState.started,interval.rawState.state,note.id,note.creationDate,note.text
A0000000-0000-4000-8000-00000000000F,2024-01-01T00:00:00Z,"T/1",B0000000-0000-4000-8000-000000000000,2001-01-01T00:00:00Z,5.0,1800.5,2024-01-01T00:01:01Z,1,,,)");
}

TEST_F(SerializersTest, LeaveOutWhatIsAbsentAndEscapeInJsonAlone) {
    // Changes one after another; a blank in the JSON stands for a line break and its indentation.
    const auto rows = std::to_array<std::tuple<std::string, std::string, std::string>>(
        {{"INSERT INTO Task(pk) VALUES (1)", R"({ "intervals" : [  ], "notes" : [  ] })", ""},
         {"INSERT INTO Note(text, task) VALUES ('\"\\/\b\f\n\r\t\1\x1f🍅', 1)",
          R"({ "intervals" : [  ], "notes" : [ { "text" : "\"\\\/\b\f\n\r\t\u0001\u001f🍅" } ] })",
          ",,,,,,,,,,,\"\"\\/\b\f\n\r\t\1\x1f🍅\""},
         {"UPDATE Note SET text = CAST(x'2FFF' AS TEXT)", "", ",,,,,,,,,,,\"/\xff\""},
         {"DELETE FROM Note; INSERT INTO Interval VALUES (1, NULL, NULL, 9e999, 0, 1)", "",
          ",,,,,inf,0.0,,,"}});
    for (const auto& [statements, flatJson, csvRows] : rows) {
        store.reopen(statements);
        EXPECT_EQ(std::regex_replace(json(), std::regex("\n *"), " "), flatJson) << statements;
        EXPECT_EQ(csv().substr(csv().find('\n') + 1), csvRows) << statements;
    }
    store.first<store::Interval>().setDuration(base::Seconds(std::nan("")));
    EXPECT_TRUE(json().empty() && csv().ends_with("\n,,,,,nan,0.0,,,")) << json() << csv();
}

}  // namespace hearthmark::exporting
