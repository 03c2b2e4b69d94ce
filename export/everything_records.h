// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "base/uuid.h"
#include "store/records.h"

namespace hearthmark::exporting {

// A value of a document of everything, whatever it is of.
struct EverythingValue {
    std::string_view text;
    double number = 0;
    base::Uuid id{};
};

constexpr auto kNotOfEverything = "This is not a file that Export Everything wrote.";

// The text in quotes, cut where it is long, for a message.
std::string quotedStart(std::string_view text);

// Puts the tasks of a document of everything together: an object is begun, what is in it is set,
// and it ends. Where something cannot be so, reason() says why, and all is in vain.
class EverythingRecords {
 public:
    using Value = EverythingValue;

    void setFormat(const Value& value);
    void setVersion(const Value& value);
    void setTaskId(const Value& value);
    void setTaskDate(const Value& value);
    void setTaskName(const Value& value);
    void setIntervalId(const Value& value);
    void setIntervalDate(const Value& value);
    void setDuration(const Value& value);
    void setMaxDuration(const Value& value);
    void setStarted(const Value& value);
    void setState(const Value& value);
    void setNoteId(const Value& value);
    void setNoteDate(const Value& value);
    void setNoteText(const Value& value);

    void beginTask() { task_ = {}; }
    void beginInterval() { interval_ = {}; }
    void beginState() { state_ = {}; }
    void beginNote() { note_ = {}; }
    void endTask();
    void endInterval();
    void endState();
    void endNote();

    bool isDone(const base::Uuid& taskId) const { return done_.contains(taskId); }
    void setDone(const base::Uuid& taskId, const Value& value, std::size_t line);
    // After the last piece: gives the tasks their dates of being done. Where one is of no task, the
    // line of the first such date, else 0.
    std::size_t giveDates();

    std::vector<store::TaskRecord>& tasks() { return tasks_; }
    const std::string& reason() const { return reason_; }

 private:
    struct Done {
        base::Date date;
        std::size_t line;
    };

    void remember(const std::optional<base::Uuid>& id, std::unordered_set<base::Uuid>& ids);

    store::TaskRecord task_;
    store::IntervalRecord interval_;
    store::IntervalRecord::RawState state_;
    store::NoteRecord note_;

    std::vector<store::TaskRecord> tasks_;
    std::unordered_map<base::Uuid, Done> done_;
    std::unordered_set<base::Uuid> taskIds_;
    std::unordered_set<base::Uuid> intervalIds_;
    std::unordered_set<base::Uuid> noteIds_;
    std::string reason_;
};

}  // namespace hearthmark::exporting
