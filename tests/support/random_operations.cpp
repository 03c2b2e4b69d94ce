// SPDX-License-Identifier: MIT
#include "support/random_operations.h"

#include <array>
#include <charconv>
#include <iterator>
#include <utility>

namespace hearthmark::tests {

namespace {

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

}  // namespace

class RandomOperations::SetClock final : public base::Clock {
 public:
    explicit SetClock(base::Date start) : now_(start) {}

    base::Date now() const override { return now_; }
    void advance(base::Seconds by) { now_ = now_ + by; }

 private:
    base::Date now_;
};

RandomOperations::RandomOperations(std::shared_ptr<objectstore::PersistentContainer> container,
                                   unsigned seed, Tell tell, base::Date start)
    : random_(seed),
      seed_(seed),
      tell_(std::move(tell)),
      clock_(std::make_shared<SetClock>(start)),
      container_(std::move(container)),
      liveDataFactory_(container_),
      service_(liveDataFactory_, container_, clock_, base::FatalErrorHandler()) {}

template <class... Words>
void RandomOperations::tell(const std::string& first, const Words&... words) {
    tell_((first + ... + ('\t' + word(words))));
}

void RandomOperations::doOne() {
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

int RandomOperations::below(std::size_t bound) {
    return std::uniform_int_distribution<>(0, static_cast<int>(bound) - 1)(random_);
}

template <class Entity>
base::Uuid RandomOperations::anyOf(const std::vector<Entity*>& entities) {
    return entities[static_cast<std::size_t>(below(entities.size()))]->id().value();
}

void RandomOperations::createTask() {
    const std::string name = "Task " + std::to_string(seed_) + '-' + std::to_string(++made_);
    tell("begin", word("createTask"), name, clock_->now());
    service_.createTask(name);
    const store::Tasks tasks = container_->viewContext().objects<store::Task>();
    const store::Task& made = *std::next(tasks.begin(), static_cast<int>(tasks.size()) - 1);
    tell("done", made.id().value());
}

void RandomOperations::changeTask(const store::Task& task, int choice, base::Date now) {
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

}  // namespace hearthmark::tests
