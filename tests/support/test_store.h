// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "store/data_operations_service.h"
#include "store/live_data.h"
#include "support/fakes.h"

namespace hearthmark::tests {

// A new directory that goes with this object.
class TemporaryDirectory {
 public:
    TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory() { std::filesystem::remove_all(path); }

    std::filesystem::path path;
};

std::string bytesOf(const std::filesystem::path& file);

// Every file of a directory with its bytes.
std::map<std::string, std::string> filesOf(const std::filesystem::path& directory);

// Writes over what is in the file there.
void overwrite(const std::filesystem::path& file, std::uintmax_t offset, const std::string& bytes);

// What makes a store one of the first version.
constexpr auto kToFirstVersion = "PRAGMA user_version = 1; ALTER TABLE Task DROP COLUMN doneDate";

// Runs statements on a file as another program would, over a connection of its own. Returns the
// rows joined by " ", each as its columns joined by "|". Throws std::runtime_error.
std::string sql(const std::filesystem::path& file, const std::string& statements);

// The program's store in a directory.
std::shared_ptr<objectstore::PersistentContainer> open(const std::filesystem::path& directory);

// A store file of its own with what reads and writes it, open when made.
struct TestStore {
    TestStore() { reopen(); }

    void close();
    // As at the next start of the program, with changes made to the file in between.
    void reopen(const std::string& statements = "");

    // Saved when they return.
    store::Task& addTask(const std::string& name, base::Date created = at(100));
    store::Interval& addInterval(store::Task& task, store::IntervalState state,
                                 base::Seconds duration = base::Seconds(0),
                                 base::Seconds maxDuration = base::Seconds(1800),
                                 base::Date created = at(200));

    objectstore::ManagedObjectContext& context() { return container->viewContext(); }
    std::string sql(const std::string& statements) const { return tests::sql(file, statements); }
    template <class Entity>
    Entity& first() {
        return *context().objects<Entity>().begin();
    }

    TemporaryDirectory directory;
    std::filesystem::path file = directory.path / "Hearthmark.sqlite";
    std::shared_ptr<FakeClock> clock = std::make_shared<FakeClock>();
    std::shared_ptr<objectstore::PersistentContainer> container;
    std::shared_ptr<const store::LiveDataProvidingFactory> liveData;
    std::shared_ptr<store::DataOperationsService> service;
};

}  // namespace hearthmark::tests
