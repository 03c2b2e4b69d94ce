// SPDX-License-Identifier: MIT
#include "services/status_menu_service.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "base/weakly.h"
#include "services/focus.h"
#include "store/interval.h"
#include "store/newest_first.h"
#include "store/time_texts.h"

namespace hearthmark::services {

namespace {

constexpr std::size_t kMostTasks = 3;

struct UsedTask {
    const store::Task* task;
    const store::Interval* newest;
};

// Those that are not done, the one used last first.
std::vector<UsedTask> tasksUsedLast(const store::Tasks& tasks) {
    std::vector<UsedTask> used;
    for (const store::Task& task : tasks) {
        const auto& settled = task.intervalSummary()->settled->intervals;
        if (task.id() && !task.doneDate() && !settled.empty()) {
            used.push_back({.task = &task, .newest = settled.front()});
        }
    }
    const std::size_t count = std::min(used.size(), kMostTasks);
    std::ranges::partial_sort(used, used.begin() + std::ptrdiff_t(count), store::NewestFirst(),
                              &UsedTask::newest);
    used.resize(count);
    return used;
}

}  // namespace

StatusMenuService::StatusMenuService(std::shared_ptr<QuickFocus> quickFocus,
                                     const store::LiveDataProvidingFactoryProtocol& liveDataFactory)
    : quickFocus_(std::move(quickFocus)),
      tasksProvider_(
          liveDataFactory.makeProvider<store::Task>({.key = "creationDate", .ascending = true})),
      intervalsProvider_(liveDataFactory.makeProvider<store::Interval>(
          {.key = "creationDate", .ascending = true})) {
    tasksProvider_->startObserving();
    intervalsProvider_->startObserving();
}

std::vector<StatusMenuEntry> StatusMenuService::entries() const {
    const store::Tasks tasks = tasksProvider_->currentItems()->value();
    if (!canStartFocus(tasks)) {
        return {{.key = "finish",
                 .text = "Finish",
                 .taskName = {},
                 .choose = base::weakly(std::weak_ptr(quickFocus_), &QuickFocus::finishNewest)}};
    }
    std::vector<StatusMenuEntry> entries;
    const std::vector<UsedTask> used = tasksUsedLast(tasks);
    if (!used.empty()) {
        if (const auto rest = restOf(*used.front().newest)) {
            StatusMenuEntry entry = startEntry(*used.front().task, *rest);
            entry.key = "continue " + entry.key;
            entry.text = "Continue " + store::formattedDuration(*rest).value_or("-");
            entries.push_back(std::move(entry));
        }
    }
    for (const UsedTask& each : used) {
        entries.push_back(startEntry(*each.task, kShortFocus));
        entries.push_back(startEntry(*each.task, kLongFocus));
    }
    return entries;
}

StatusMenuEntry StatusMenuService::startEntry(const store::Task& task, base::Seconds length) const {
    return {.key = std::to_string(length.count()) + " " + task.id()->text(),
            .text = "Start " + store::formattedDuration(length).value_or("-"),
            .taskName = task.name().value_or("-"),
            .choose = base::weakly(std::weak_ptr(quickFocus_),
                                   [taskId = *task.id(), length](QuickFocus& quickFocus) {
                                       quickFocus.start(taskId, length);
                                   })};
}

void StatusMenuService::startObserving(const std::function<void()>& onChange) {
    const auto tell = [onChange](const auto& /*items*/) { onChange(); };
    cancellables_.push_back(tasksProvider_->currentItems()->subscribe(tell));
    cancellables_.push_back(intervalsProvider_->currentItems()->subscribe(tell));
}

}  // namespace hearthmark::services
