// SPDX-License-Identifier: MIT
#include "benchmarks/sample_store.h"

#include "store/persistent_container_factory.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace hearthmark::benchmarks {

namespace {

constexpr int kIntervalsOfTask = 50;
constexpr int kNotesOfTask = 10;
// So long that no tick finishes what runs.
constexpr base::Seconds kNeverDue{1e9};

struct TemporaryDirectory {
    TemporaryDirectory() {
        std::string name = std::filesystem::temp_directory_path() / "hearthmark-benchmarks-XXXXXX";
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("No directory can be made at " + name);
        }
        path = name;
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    std::filesystem::path path;
};

void fillTask(store::Task& task, int ordinal, base::Date now,
              objectstore::ManagedObjectContext& context) {
    const base::Date created = now + base::Seconds(ordinal * 3607.25 - 1e8);
    task.setId(base::Uuid::random());
    task.setCreationDate(created);
    task.setName("Chapter " + std::to_string(ordinal) + ": read, mark, summarise");
    for (int each = 0; each < kIntervalsOfTask; ++each) {
        const bool runs = ordinal < 2 && each == 0;
        task.addIntervalsObject(
            *store::Interval::create({.creationDate = created + base::Seconds(each * 1913.125),
                                      .duration = base::Seconds(1800.5),
                                      .id = base::Uuid::random(),
                                      .maxDuration = runs ? kNeverDue : base::Seconds(1800),
                                      .state = runs ? store::IntervalState::running(now, now)
                                                    : store::IntervalState::finished()},
                                     context));
    }
    for (int each = 0; each < kNotesOfTask; ++each) {
        task.addNotesObject(*store::Note::create(
            {.creationDate = created,
             .id = base::Uuid::random(),
             .text = "The second argument needs an example; see what the appendix says."},
            context));
    }
}

std::shared_ptr<objectstore::PersistentContainer> openContainer(
    const std::filesystem::path& directory) {
    return store::PersistentContainerFactory(directory, base::FatalErrorHandler()).makeContainer();
}

}  // namespace

std::filesystem::path sampleStore(std::int64_t intervals) {
    static const TemporaryDirectory kRoot;
    std::filesystem::path directory = kRoot.path / std::to_string(intervals);
    if (!std::filesystem::exists(directory)) {
        const auto container = openContainer(directory);
        objectstore::ManagedObjectContext& context = container->viewContext();
        const base::Date now = base::SystemClock().now();
        for (int task = 0; task < intervals / kIntervalsOfTask; ++task) {
            fillTask(*context.insert<store::Task>(), task, now, context);
        }
        context.save();
    }
    return directory;
}

OpenedStore::OpenedStore(const std::filesystem::path& directory)
    : container(openContainer(directory)),
      liveDataFactory(std::make_shared<store::LiveDataProvidingFactory>(container)),
      service(std::make_shared<store::DataOperationsService>(*liveDataFactory, container, clock,
                                                             base::FatalErrorHandler())) {}

}  // namespace hearthmark::benchmarks
