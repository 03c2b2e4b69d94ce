// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/uuid.h"
#include "store/records.h"
#include "store/task.h"

// What a JSON document of a task says, taken from the store at one moment. The members are the keys
// of the document, in the order in which they are written; one that is absent has no key.
namespace hearthmark::exporting {

struct IntervalStateForJSON {
    std::optional<base::Date> started;
    // The stored code, whether or not it means anything: 0 paused, 1 running, 2 finished.
    std::int16_t state;
};

struct IntervalForJSON {
    std::optional<base::Uuid> id;
    std::optional<base::Date> creationDate;
    base::Seconds duration;
    base::Seconds maxDuration;
    std::optional<IntervalStateForJSON> state;
};

struct NoteForJSON {
    std::optional<base::Uuid> id;
    std::optional<base::Date> creationDate;
    std::optional<std::string> text;
};

struct TaskForJSON {
    std::optional<base::Uuid> id;
    std::optional<base::Date> creationDate;
    std::optional<std::string> name;
    std::vector<IntervalForJSON> intervals;
    std::vector<NoteForJSON> notes;
};

TaskForJSON taskForJSON(const store::Task& task);
TaskForJSON taskForJSON(const store::TaskRecord& task);

}  // namespace hearthmark::exporting
