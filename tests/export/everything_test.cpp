// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <array>
#include <cmath>
#include <csignal>
#include <fstream>
#include <random>

#include "export/everything_document.h"
#include "export/everything_reader.h"
#include "export/file_export.h"
#include "export/json_share_serializer.h"
#include "store/note.h"
#include "store/undo_history.h"
#include "support/random_operations.h"
#include "support/test_store.h"

namespace hearthmark::exporting {
namespace {

constexpr auto kStart = R"({"format":"org.hearthmark.everything","version":1,"tasks":[)";
constexpr auto kEnd = "],\n\"done\":{}}";
constexpr auto kId = "A0000000-0000-4000-8000-00000000000F";

std::string textOf(TextParts&& parts) {
    std::string text;
    while (parts.appendNext(text)) {
    }
    return text;
}

std::string everythingOf(const tests::TestStore& store) {
    return textOf(EverythingDocument(store.container->viewContext().objects<store::Task>()));
}

// The rows as an import sees them: by id, without keys and stamps, and of what has a task.
std::string rowsOf(const tests::TestStore& store, bool areFinished) {
    const std::string state = areFinished ? "max(state, 2), NULL" : "state, started, visited";
    return store.sql(
        "SELECT id, name, hex(creationDate), doneDate FROM Task ORDER BY id;"
        "SELECT Interval.id, Task.id, Interval.creationDate, duration, maxDuration, " +
        state +
        " FROM Interval JOIN Task ON task = Task.pk LEFT JOIN RawIntervalState ON interval = "
        "Interval.pk ORDER BY Interval.id;"
        "SELECT Note.id, Task.id, text FROM Note JOIN Task ON task = Task.pk ORDER BY Note.id");
}

TEST(EverythingDocument, NamesWhatCannotBeEncodedAndLeavesTheRestWhole) {
    tests::TestStore store;
    store.reopen(
        "INSERT INTO Task VALUES (1, 'A0000000-0000-4000-8000-00000000000F', 1, 'whole', 7.5),"
        " (2, 'B0000000-0000-4000-8000-00000000000F', 1, CAST(x'2FFF' AS TEXT), 7),"
        " (3, NULL, 1, 'endless', NULL), (4, NULL, 1, 'done endlessly', NULL);"
        "INSERT INTO Interval VALUES (1, NULL, 0, 9e999, 0, 3)");
    for (store::Task& task : store.context().objects<store::Task>()) {
        if (task.name() == "done endlessly") {
            task.setDoneDate(tests::at(INFINITY));
        }
    }
    EverythingDocument document(store.context().objects<store::Task>());
    std::string text;
    while (document.appendNext(text)) {
    }
    using Names = std::vector<std::optional<std::string>>;
    EXPECT_EQ(document.leftOut(), (Names{"/\xff", "endless", "done endlessly"}));
    const EverythingRead read = readEverything(text);
    ASSERT_EQ(read.tasks.size(), 1U) << read.reason << text;
    EXPECT_EQ(read.tasks[0].name, "whole");
    EXPECT_EQ(read.tasks[0].doneDate, tests::at(7.5));
}

// NOLINTBEGIN(modernize-raw-string-literal): the lines count
TEST(EverythingReader, RefusesEveryFaultWithItsLine) {
    const std::string task = std::string("\n{\"id\":\"") + kId + "\",\n\"intervals\":[";
    const std::string interval = task + R"({"duration":1,"maxDuration":0)";
    // What stands in the list of tasks, and what is said of it.
    const auto tasks = std::to_array<std::pair<std::string, std::string>>(
        {{"", ""},
         {"\n3", "Line 2: What stands in the list is not an object."},
         {task + "],\"notes\":[]}", ""},
         {task + "]}", "Line 3: \"notes\" is missing in a task."},
         {task + "],\n\"intervals\":[]}", "Line 4: \"intervals\" is there twice."},
         {task + "],\"colour\":1}", "Line 3: \"colour\" is no part of a task."},
         {task + "],\"name\":null}", "Line 3: \"name\" is not a text."},
         {task + "],\"notes\":[]},\n" + task + "],\"notes\":[]}",
          "Line 6: \"" + std::string(kId) + "\" is there twice."},
         {task + "{\"duration\":\n\"5\"", "Line 4: \"duration\" is not a number."},
         {task + "{\"duration\":1}", "Line 3: \"maxDuration\" is missing in an interval."},
         {task + "{\"duration\":1e999", "Line 3: Number too big to be stored in double."},
         {task + "{\"duration\":1e-999", "Line 3: The number is out of range."},
         {task + "{\"duration\":01", "Line 3: Missing a comma or '}' after an object member."},
         {task + "{\"duration\":NaN", "Line 3: Invalid value."},
         {interval + ",\"id\":\"1\"", "Line 3: \"id\" is not an identifier."},
         {interval + ",\"state\":2", "Line 3: \"state\" is not an object."},
         {interval + ",\"state\":{\"state\":2.5", "Line 3: \"state\" is not a whole number."},
         {interval + ",\"state\":{\"state\":32768", "Line 3: \"state\" is out of range."},
         {interval + ",\"state\":{\"state\":-32768}}],\"notes\":[]}", ""},
         {task + "],\"notes\":[{\"text\":\"\xff\"}]}", "Line 3: The text is not valid UTF-8."},
         {task + "],\"notes\":[{\"text\":\"\\udc00\"}]}", "Line 3: The text is not valid UTF-8."},
         {std::string(100000, '['), "Line 1: What stands in the list is not an object."}});
    for (const auto& [inside, fault] : tasks) {
        EXPECT_EQ(readEverything(kStart + inside + kEnd).reason, fault) << inside.substr(0, 200);
    }
    const std::string good = kStart + task + "],\"notes\":[]}],\n\"done\":{\"";
    const auto documents = std::to_array<std::pair<std::string, std::string>>(
        {{"", "The file is empty."},
         {"\n[]", "Line 2: This is not a file that Export Everything wrote."},
         {"{}", "Line 1: \"format\" is missing in the document."},
         {"{\"format\":\"x\"",
          "Line 1: This is not a file that Export Everything wrote. Its \"format\" is \"x\"."},
         {R"({"format":"org.hearthmark.everything","version":2,"new":[])",
          "Line 1: A newer version of Hearthmark wrote the file."},
         {"{\"id\":\"" + std::string(kId) + "\"}",
          "Line 1: This is the text of one task, as Share gives it. Only a file of everything can "
          "be imported."},
         {kStart + std::string("\n"), "Line 2: The file ends too early."},
         {good + kId + "\":1}}\n", ""},
         {good + kId + "\":1}}\n]",
          "Line 5: The document root must not be followed by other values."},
         {good + kId + "\":1}}" + std::string("\0x", 2),
          "Line 4: After the end of the document there is more."},
         {good + kId + "\":true}}", "Line 4: \"" + std::string(kId) + "\" has no number."},
         {good + "B" + (kId + 1) + "\":1}}",
          "Line 4: \"B" + std::string(kId + 1) + "\" is none of the tasks."},
         {good + "x\":1}}", "Line 4: \"x\" is not an identifier."}});
    for (const auto& [document, fault] : documents) {
        EXPECT_EQ(readEverything(std::string_view(document)).reason, fault) << document;
    }
}
// NOLINTEND(modernize-raw-string-literal)

TEST(EverythingReader, LooksAtAFileBeforeItReadsIt) {
    const tests::TemporaryDirectory directory;
    const std::filesystem::path large = directory.path / "large";
    std::ofstream(large) << "{";
    std::filesystem::resize_file(large, kMostBytesRead + 1);
    ::mkfifo((directory.path / "pipe").c_str(), 0600);
    const auto files = std::to_array<std::pair<std::filesystem::path, std::string>>(
        {{large, "The file is larger than 512 MiB. That is more than can be imported."},
         {directory.path / "pipe",
          "A folder, or something else that is not a file, has that name."},
         {directory.path, "A folder, or something else that is not a file, has that name."},
         {directory.path / "gone", "The path leads nowhere."}});
    for (const auto& [file, reason] : files) {
        EXPECT_EQ(readEverything(file, {}).reason, reason) << file;
    }
    std::filesystem::resize_file(large, kMostBytesRead);
    const auto cancelled =
        readEverything(large, {.tellProgress = {}, .isCancelled = [] { return true; }});
    EXPECT_EQ(cancelled.outcome, EverythingRead::Outcome::cancelled);
}

// So many bytes, a thousand at a time.
struct Bytes final : TextParts {
    explicit Bytes(std::size_t count) : left(count / 1000) {}
    bool appendNext(std::string& text) override {
        text.append(left > 0 ? 1000 : 0, 'x');
        return left > 0 && left-- > 0;
    }
    double shareDone() const override { return 0; }
    std::size_t left;
};

struct FileExportTest : testing::Test {
    FileExportTest() {
        std::ofstream(old) << "old";
        std::filesystem::permissions(old, std::filesystem::perms(0640));
        std::filesystem::create_directory(path / "folder");
        std::filesystem::create_symlink("folder/../old", path / "link");
        std::filesystem::create_symlink("folder/new", path / "dangling");
        std::filesystem::create_symlink("loop", path / "loop");
    }

    tests::TemporaryDirectory directory;
    std::filesystem::path path = directory.path;
    std::filesystem::path old = path / "old";
};

TEST_F(FileExportTest, WritesAllOrLeavesWhatWasThereWithoutLitter) {
    constexpr std::size_t kSize = 1'000'000;
    std::signal(SIGXFSZ, SIG_IGN);
    ::rlimit usual{};
    ::getrlimit(RLIMIT_FSIZE, &usual);
    // Where it is written, how large a file may be, after how many parts it is cancelled, and what
    // comes of it; then where something new is found.
    using Row = std::tuple<std::string, rlim_t, int, std::string, std::string>;
    const auto rows = std::to_array<Row>({{"old", 0, -1, "File too large", ""},
                                          {"old", 300'000, -1, "File too large", ""},
                                          {"old", kSize - 1, -1, "File too large", ""},
                                          {"old", kSize, 0, "cancelled", ""},
                                          {"old", kSize, 700, "cancelled", ""},
                                          {"old", kSize, 1001, "cancelled", ""},
                                          {"folder", kSize, -1, "A folder, or something", ""},
                                          {"loop", kSize, -1, "The path leads nowhere.", ""},
                                          {"gone/new", kSize, -1, "The path leads nowhere.", ""},
                                          {"old/new", kSize, -1, "The path leads nowhere.", ""},
                                          {"dangling", kSize, -1, "", "folder/new"},
                                          {"link", kSize, -1, "", "old"}});
    for (const auto& [target, most, cancelAfter, expected, changed] : rows) {
        SCOPED_TRACE(target + ' ' + std::to_string(most) + ' ' + std::to_string(cancelAfter));
        const rlimit limit{most, usual.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        int asked = 0;
        Bytes bytes(kSize);
        const FileExport result =
            writeFile(path / target, bytes,
                      {.tellProgress = {},
                       .isCancelled = [&asked, after = cancelAfter] { return asked++ == after; }});
        ::setrlimit(RLIMIT_FSIZE, &usual);
        const std::string found =
            result.outcome == FileExport::Outcome::cancelled ? "cancelled" : result.reason;
        EXPECT_TRUE(expected.empty() ? found.empty() : found.starts_with(expected)) << found;
        EXPECT_EQ(tests::bytesOf(old), changed == "old" ? std::string(kSize, 'x') : "old");
        if (!changed.empty()) {
            EXPECT_EQ(std::filesystem::file_size(path / changed), kSize);
            std::filesystem::remove(path / "folder/new");
        }
        EXPECT_EQ(std::distance(std::filesystem::recursive_directory_iterator(path), {}), 5);
    }
    EXPECT_EQ(std::filesystem::status(old).permissions(), std::filesystem::perms(0640));
    EXPECT_TRUE(std::filesystem::is_symlink(path / "link"));
}

TEST(Import, AddsWhatIsMissingOnceAndIsTakenBackAtOnce) {
    int mixed = 0;
    for (unsigned seed = 0; seed < 8; ++seed) {
        SCOPED_TRACE(seed);
        tests::TestStore store;
        tests::RandomOperations random(store.container, seed);
        for (int each = 0; each < 150; ++each) {
            random.doOne();
        }
        const std::string document = everythingOf(store);
        const EverythingRead read = readEverything(std::string_view(document));
        ASSERT_EQ(read.outcome, EverythingRead::Outcome::read) << read.reason;

        // A copy in which a part is missing.
        tests::TestStore copy;
        copy.close();
        std::filesystem::remove(copy.file);
        store.sql("VACUUM INTO '" + copy.file.string() + "'");
        std::string statements = "DELETE FROM Task WHERE pk % 4 = 0";
        for (const std::string table : {"Interval", "Note"}) {
            statements.append("; DELETE FROM ").append(table);
            statements.append(" WHERE task NOT IN (SELECT pk FROM Task) OR pk % 3 = 0");
        }
        copy.reopen(statements +
                    "; DELETE FROM RawIntervalState"
                    " WHERE interval NOT IN (SELECT pk FROM Interval)");
        const std::string before = rowsOf(copy, false);
        const auto unfinished =
            "SELECT id FROM RawIntervalState JOIN Interval ON interval = "
            "Interval.pk WHERE state < 2 ORDER BY id";
        const std::string unfinishedBefore = copy.sql(unfinished);
        store::UndoHistory history(copy.service);

        const store::ImportCounts counts = copy.service->importable(read.tasks);
        copy.service->importTasks(read.tasks);
        EXPECT_EQ(copy.sql("SELECT count(*) FROM Interval JOIN Task ON task = Task.pk"),
                  store.sql("SELECT count(*) FROM Interval JOIN Task ON task = Task.pk"));
        const std::string after = rowsOf(copy, true);
        EXPECT_EQ(copy.sql(unfinished), unfinishedBefore);
        EXPECT_EQ(after, rowsOf(store, true));
        EXPECT_EQ(counts.isEmpty(), before == rowsOf(copy, false));
        EXPECT_TRUE(copy.service->importable(read.tasks).isEmpty());
        copy.service->importTasks(read.tasks);
        history.undo();
        EXPECT_EQ(rowsOf(copy, false), before);
        EXPECT_EQ(history.state().value().undo, nullptr);
        history.redo();
        EXPECT_EQ(rowsOf(copy, true), after);
        mixed += counts.tasks > 0 && counts.tasks < read.tasks.size() ? 1 : 0;
    }
    EXPECT_GT(mixed, 4);
}

}  // namespace
}  // namespace hearthmark::exporting
