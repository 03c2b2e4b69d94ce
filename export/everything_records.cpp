// SPDX-License-Identifier: MIT
#include "export/everything_records.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "base/text.h"
#include "export/everything_document.h"

namespace hearthmark::exporting {

namespace {

// Of a text that a message repeats.
constexpr std::size_t kMostShown = 60;

}  // namespace

std::string quotedStart(std::string_view text) {
    const bool isCut = text.size() > kMostShown;
    return '"' + base::withValidUtf8(text.substr(0, kMostShown)) + (isCut ? "…\"" : "\"");
}

void EverythingRecords::setFormat(const Value& value) {
    if (value.text != kEverythingFormat) {
        reason_ =
            std::string(kNotOfEverything) + " Its \"format\" is " + quotedStart(value.text) + '.';
    }
}

void EverythingRecords::setVersion(const Value& value) {
    if (value.number > kEverythingVersion) {
        reason_ = "A newer version of Hearthmark wrote the file.";
    } else if (value.number != kEverythingVersion) {
        reason_ = "\"version\" is none that there was.";
    }
}

void EverythingRecords::setTaskId(const Value& value) {
    task_.id = value.id;
}

void EverythingRecords::setTaskDate(const Value& value) {
    task_.creationDate = base::Date(base::Seconds(value.number));
}

void EverythingRecords::setTaskName(const Value& value) {
    task_.name = value.text;
}

void EverythingRecords::setIntervalId(const Value& value) {
    interval_.id = value.id;
}

void EverythingRecords::setIntervalDate(const Value& value) {
    interval_.creationDate = base::Date(base::Seconds(value.number));
}

void EverythingRecords::setDuration(const Value& value) {
    interval_.duration = base::Seconds(value.number);
}

void EverythingRecords::setMaxDuration(const Value& value) {
    interval_.maxDuration = base::Seconds(value.number);
}

void EverythingRecords::setStarted(const Value& value) {
    state_.started = base::Date(base::Seconds(value.number));
}

void EverythingRecords::setState(const Value& value) {
    using Limits = std::numeric_limits<std::int16_t>;
    if (value.number < Limits::min() || value.number > Limits::max()) {
        reason_ = "\"state\" is out of range.";
        return;
    }
    state_.state = static_cast<std::int16_t>(value.number);
}

void EverythingRecords::setNoteId(const Value& value) {
    note_.id = value.id;
}

void EverythingRecords::setNoteDate(const Value& value) {
    note_.creationDate = base::Date(base::Seconds(value.number));
}

void EverythingRecords::setNoteText(const Value& value) {
    note_.text = value.text;
}

void EverythingRecords::remember(const std::optional<base::Uuid>& id,
                                 std::unordered_set<base::Uuid>& ids) {
    if (id && !ids.insert(*id).second) {
        reason_ = '"' + id->text() + "\" is there twice.";
    }
}

void EverythingRecords::endState() {
    interval_.rawState = state_;
}

void EverythingRecords::endInterval() {
    remember(interval_.id, intervalIds_);
    task_.intervals.push_back(interval_);
}

void EverythingRecords::endNote() {
    remember(note_.id, noteIds_);
    task_.notes.push_back(std::move(note_));
}

void EverythingRecords::endTask() {
    remember(task_.id, taskIds_);
    tasks_.push_back(std::move(task_));
}

void EverythingRecords::setDone(const base::Uuid& taskId, const Value& value, std::size_t line) {
    done_.emplace(taskId, Done{base::Date(base::Seconds(value.number)), line});
}

std::size_t EverythingRecords::giveDates() {
    for (store::TaskRecord& task : tasks_) {
        if (const auto done = task.id ? done_.find(*task.id) : done_.end(); done != done_.end()) {
            task.doneDate = done->second.date;
            done_.erase(done);
        }
    }
    const auto first =
        std::ranges::min_element(done_, {}, [](const auto& entry) { return entry.second.line; });
    if (first == done_.end()) {
        return 0;
    }
    reason_ = '"' + first->first.text() + "\" is none of the tasks.";
    return first->second.line;
}

}  // namespace hearthmark::exporting
