// SPDX-License-Identifier: MIT
//
// Writes random operations to a store until it is killed, for kill_test.py:
//     kill_writer <directory> <seed>
// It tells each operation on standard output before it begins and once it has returned, in lines of
// words parted by tabs. Dates and durations are in seconds and read back to the same double.
#include "store/data_operations_service.h"
#include "store/persistent_container_factory.h"

#include <unistd.h>

#include <array>
#include <charconv>
#include <cstdlib>
#include <random>
#include <string>

namespace {

using namespace hearthmark;

std::string word(double number) {
    std::array<char, 32> digits{};
    return {digits.data(), std::to_chars(digits.begin(), digits.end(), number).ptr};
}
std::string word(base::Date date) {
    return word(date.sinceReferenceDate().count());
}
std::string word(const base::Uuid& id) {
    return id.text();
}
std::string word(const std::string& text) {
    return text;
}

// In one write each, so that a kill loses the line or leaves it whole.
template <class... Words>
void tell(const std::string& first, const Words&... words) {
    std::string line = first;
    ((line += '\t' + word(words)), ...);
    line += '\n';
    if (::write(STDOUT_FILENO, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
        std::exit(EXIT_FAILURE);
    }
}

class SetClock final : public base::Clock {
 public:
    base::Date now() const override { return now_; }
    void advance(base::Seconds by) { now_ = now_ + by; }

 private:
    base::Date now_ = base::SystemClock().now();
};

class Writer {
 public:
    Writer(const std::string& directory, unsigned seed)
        : random_(seed),
          seed_(seed),
          container_(store::PersistentContainerFactory(directory, base::FatalErrorHandler())
                         .makeContainer()),
          liveDataFactory_(container_),
          service_(liveDataFactory_, container_, clock_, base::FatalErrorHandler()) {
        const auto& context = container_->viewContext();
        tell("loaded", std::to_string(context.objects<store::Task>().size()),
             std::to_string(context.objects<store::Interval>().size()),
             std::to_string(context.objects<store::RawIntervalState>().size()),
             std::to_string(context.objects<store::Note>().size()));
    }

    void writeOne() {
        clock_->advance(base::Seconds(std::uniform_real_distribution<>(0, 300)(random_)));
        const base::Date now = clock_->now();
        const store::Tasks tasks = container_->viewContext().objects<store::Task>();
        const int choice = below(100);
        if (tasks.empty() || choice < 8) {
            createTask();
            return;
        }
        if (choice < 80) {
            changeTask(*std::next(tasks.begin(), below(tasks.size())), choice, now);
        } else if (choice < 85) {
            tell("begin", word("finishDueIntervals"), now);
            service_.finishDueIntervals();
        } else if (choice < 90) {
            tell("begin", word("markRunningIntervalsVisited"), now);
            service_.markRunningIntervalsVisited(now);
        } else if (choice < 91) {
            const base::Date from = now;
            clock_->advance(base::Seconds(40000));
            tell("begin", word("excludeTime"), from, clock_->now());
            service_.excludeTime(from, clock_->now());
        } else if (choice < 92) {
            tell("begin", word("finishIntervalsLeftRunning"));
            service_.finishIntervalsLeftRunning();
        } else if (choice < 96) {
            tell("begin", word("resumePausedIntervals"), now);
            service_.resumePausedIntervals();
        } else {
            tell("begin", word("pauseRunningIntervals"), now);
            service_.pauseRunningIntervals();
        }
        tell("done");
    }

 private:
    int below(std::size_t bound) {
        return std::uniform_int_distribution<>(0, static_cast<int>(bound) - 1)(random_);
    }

    template <class Entity>
    base::Uuid anyOf(const std::vector<Entity*>& entities) {
        return entities[static_cast<std::size_t>(below(entities.size()))]->id().value();
    }

    void createTask() {
        const std::string name = "Task " + std::to_string(seed_) + '-' + std::to_string(++made_);
        tell("begin", word("createTask"), name, clock_->now());
        service_.createTask(name);
        const store::Tasks tasks = container_->viewContext().objects<store::Task>();
        const store::Task& made = *std::next(tasks.begin(), static_cast<int>(tasks.size()) - 1);
        tell("done", made.id().value());
    }

    void changeTask(const store::Task& task, int choice, base::Date now) {
        const base::Uuid taskId = task.id().value();
        const base::Uuid newId = base::Uuid::random();
        if (choice < 13) {
            tell("begin", word("deleteTask"), taskId);
            service_.deleteTask(taskId);
        } else if (choice < 45 || task.intervals().empty()) {
            const base::Seconds maximum(300 * below(8));
            tell("begin", word("addInterval"), newId, now, maximum.count(), taskId);
            service_.addInterval({.creationDate = now,
                                  .duration = base::Seconds(0),
                                  .id = newId,
                                  .maxDuration = maximum,
                                  .state = store::IntervalState::running(now)},
                                 taskId);
        } else if (choice < 62) {
            const base::Uuid id = anyOf(task.intervals());
            const bool isFinished = choice < 56;
            tell("begin", word(isFinished ? "finishInterval" : "deleteInterval"), id, now);
            isFinished ? service_.finishInterval(id, taskId) : service_.deleteInterval(id, taskId);
        } else if (choice < 74 || task.notes().empty()) {
            const std::string text(static_cast<std::size_t>(below(3000)), 'n');
            tell("begin", word("addNote"), newId, now, text, taskId);
            service_.addNote({.creationDate = now, .id = newId, .text = text}, taskId);
        } else {
            const base::Uuid id = anyOf(task.notes());
            tell("begin", word("deleteNote"), id);
            service_.deleteNote(id, taskId);
        }
    }

    std::mt19937 random_;
    unsigned seed_;
    int made_ = 0;
    std::shared_ptr<SetClock> clock_ = std::make_shared<SetClock>();
    std::shared_ptr<objectstore::PersistentContainer> container_;
    store::LiveDataProvidingFactory liveDataFactory_;
    store::DataOperationsService service_;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        return EXIT_FAILURE;
    }
    Writer writer(argv[1], static_cast<unsigned>(std::stoul(argv[2])));
    for (;;) {
        writer.writeOne();
    }
}
