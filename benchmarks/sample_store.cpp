// SPDX-License-Identifier: MIT
#include "benchmarks/sample_store.h"

#include "store/note.h"
#include "store/persistent_container_factory.h"

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <stdexcept>

namespace hearthmark::benchmarks {

namespace {

constexpr base::Date kFirstDay(base::Seconds(725760000));
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

void fillTask(store::Task& task, base::Date created, std::int64_t intervals, std::int64_t notes,
              objectstore::ManagedObjectContext& context) {
    std::minstd_rand dice;
    std::uniform_real_distribution<double> fraction;
    task.setId(base::Uuid::random());
    task.setCreationDate(created);
    for (std::int64_t each = 0; each < intervals; ++each) {
        // Half are of whole seconds, half are what a clock told.
        const base::Seconds late(each % 2 == 0 ? 0 : fraction(dice));
        const base::Date begun = created + base::Seconds(each * 1913) + late;
        const base::Date ended = begun + base::Seconds(1800) + late;
        task.addIntervalsObject(
            *store::Interval::create({.creationDate = begun,
                                      .duration = ended - begun,
                                      .id = base::Uuid::random(),
                                      .maxDuration = base::Seconds(1800),
                                      .state = store::IntervalState::finished()},
                                     context));
    }
    for (std::int64_t each = 0; each < notes; ++each) {
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

std::filesystem::path filledStore(
    const std::string& name, const std::function<void(objectstore::ManagedObjectContext&)>& fill) {
    static const TemporaryDirectory kRoot;
    std::filesystem::path directory = kRoot.path / name;
    if (!std::filesystem::exists(directory)) {
        const auto container = openContainer(directory);
        fill(container->viewContext());
        container->viewContext().save();
    }
    return directory;
}

}  // namespace

std::filesystem::path sampleStore(std::int64_t intervals) {
    return filledStore(std::to_string(intervals), [&](objectstore::ManagedObjectContext& context) {
        for (std::int64_t ordinal = 0; ordinal < intervals / kIntervalsOfTask; ++ordinal) {
            store::Task& task = *context.insert<store::Task>();
            task.setName("Chapter " + std::to_string(ordinal) + ": read, mark, summarise");
            fillTask(task, kFirstDay + base::Seconds(ordinal * 3607), kIntervalsOfTask,
                     kNotesOfTask, context);
            if (ordinal < 2) {
                task.intervals().front()->setMaxDuration(kNeverDue);
                task.intervals().front()->rawState()->run(base::SystemClock().now());
            }
        }
    });
}

std::filesystem::path singleTaskStore(std::int64_t intervals, const std::string& name) {
    return filledStore("single-" + std::to_string(intervals),
                       [&](objectstore::ManagedObjectContext& context) {
                           store::Task& task = *context.insert<store::Task>();
                           task.setName(name);
                           fillTask(task, kFirstDay, intervals, intervals / 10, context);
                       });
}

void makeTenYearStore(const std::filesystem::path& directory, TenYears ofUse) {
    constexpr base::Seconds kTenYears{315'600'000};
    const auto container = openContainer(directory);
    const base::Date now = base::SystemClock().now();
    for (std::int64_t ordinal = 0; ordinal < ofUse.tasks; ++ordinal) {
        store::Task& task = *container->viewContext().insert<store::Task>();
        task.setName("Chapter " + std::to_string(ordinal) + ": read, mark, summarise");
        const base::Seconds age = kTenYears * static_cast<double>(ofUse.tasks - ordinal) /
                                  static_cast<double>(ofUse.tasks);
        fillTask(task, now + -age, ofUse.intervalsOfTask, ofUse.notesOfTask,
                 container->viewContext());
    }
    container->viewContext().save();
}

OpenedStore::OpenedStore(const std::filesystem::path& directory)
    : container(openContainer(directory)),
      liveDataFactory(std::make_shared<store::LiveDataProvidingFactory>(container)),
      service(std::make_shared<store::DataOperationsService>(*liveDataFactory, container, clock,
                                                             base::FatalErrorHandler())) {}

void dumpByPython(benchmark::State& state, const std::filesystem::path& file, int indentation) {
    const auto command =
        HEARTHMARK_JSON_DUMPS " " + file.string() + " " + std::to_string(indentation);
    for (auto _ : state) {
        std::FILE* output = ::popen(command.c_str(), "r");
        double seconds = 0;
        if (std::fscanf(output, "%lf", &seconds) != 1) {
            state.SkipWithError("Python did not answer.");
        }
        ::pclose(output);
        state.SetIterationTime(seconds);
    }
}

const store::Task& newestTask(const OpenedStore& opened) {
    const auto tasks = opened.container->viewContext().objects<store::Task>();
    return *std::next(tasks.begin(), static_cast<std::ptrdiff_t>(tasks.size()) - 1);
}

}  // namespace hearthmark::benchmarks
