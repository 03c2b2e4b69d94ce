// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "base/calendar.h"
#include "base/date.h"
#include "base/uuid.h"

namespace hearthmark::presentation {

// What stands in the fields of the sheet that corrects an interval, or adds one.
struct IntervalForm {
    template <class Value>
    struct Field {
        // Whether it says something else than at the beginning. Only then it is looked at.
        bool isChanged = false;
        // Absent where what stands there cannot be read.
        std::optional<Value> value;
    };

    base::Uuid taskId;
    Field<base::LocalTime> start;
    Field<base::Seconds> timeSpent;
    // 0 for no limit.
    Field<base::Seconds> length;
};

enum class IntervalField { start, timeSpent, length };

// What is to be said of a form.
struct CorrectIntervalViewState {
    struct Fault {
        IntervalField field;
        std::string reason;

        bool operator==(const Fault&) const = default;
    };

    // The first in the order of the fields. With none it can be saved.
    std::optional<Fault> fault;
    // What is allowed, but may be a mistake. May be empty.
    std::string remark;

    bool operator==(const CorrectIntervalViewState&) const = default;
};

}  // namespace hearthmark::presentation
