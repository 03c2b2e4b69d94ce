// SPDX-License-Identifier: MIT
#include "support/test_store.h"

#include <sqlite3.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "store/hearthmark_model.h"
#include "store/note.h"

namespace hearthmark::tests {

TemporaryDirectory::TemporaryDirectory() {
    std::string name = std::filesystem::temp_directory_path() / "hearthmark-test-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error(name);
    }
    path = name;
}

std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::map<std::string, std::string> filesOf(const std::filesystem::path& directory) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
        files[entry.path().filename()] = bytesOf(entry.path());
    }
    return files;
}

void overwrite(const std::filesystem::path& file, std::uintmax_t offset, const std::string& bytes) {
    std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
    stream.seekp(static_cast<std::streamoff>(offset)) << bytes;
}

std::string sql(const std::filesystem::path& file, const std::string& statements) {
    const auto append = [](void* rows, int columns, char** values, char**) {
        auto& text = *static_cast<std::string*>(rows);
        for (int column = 0; column < columns; ++column) {
            text += text.empty() ? "" : column == 0 ? " " : "|";
            text += values[column] != nullptr ? values[column] : "NULL";
        }
        return 0;
    };
    sqlite3* opened = nullptr;
    int result = sqlite3_open(file.c_str(), &opened);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(opened, &sqlite3_close);
    std::string rows;
    if (result == SQLITE_OK) {
        result = sqlite3_exec(opened, statements.c_str(), append, &rows, nullptr);
    }
    if (result != SQLITE_OK) {
        throw std::runtime_error(statements + ": " + sqlite3_errmsg(opened));
    }
    return rows;
}

std::shared_ptr<objectstore::PersistentContainer> open(const std::filesystem::path& directory) {
    auto container = std::make_shared<objectstore::PersistentContainer>(
        "Hearthmark", store::hearthmarkModel(), directory);
    container->loadPersistentStores();
    return container;
}

void TestStore::close() {
    service.reset();
    liveData.reset();
    container.reset();
}

void TestStore::reopen(const std::string& statements) {
    close();
    if (!statements.empty()) {
        sql(statements);
    }
    container = open(directory.path);
    liveData = std::make_shared<store::LiveDataProvidingFactory>(container);
    service = std::make_shared<store::DataOperationsService>(*liveData, container, clock,
                                                             base::FatalErrorHandler());
}

store::Task& TestStore::addTask(const std::string& name, base::Date created) {
    const auto task = context().insert<store::Task>();
    task->setId(base::Uuid::random());
    task->setName(name);
    task->setCreationDate(created);
    context().save();
    return *task;
}

store::Interval& TestStore::addInterval(store::Task& task, store::IntervalState state,
                                        base::Seconds duration, base::Seconds maxDuration,
                                        base::Date created) {
    const auto interval = store::Interval::create(
        {created, duration, base::Uuid::random(), maxDuration, state}, context());
    task.addIntervalsObject(*interval);
    context().save();
    return *interval;
}

}  // namespace hearthmark::tests
