// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "store/edit.h"

namespace hearthmark::store {

// What somebody did to the store, with what takes it back. To start and to finish are none of
// these: what was worked was worked.
struct Change {
    enum class Kind {
        addTask,
        deleteTask,
        renameTask,
        markTaskDone,
        reopenTask,
        addInterval,
        deleteInterval,
        correctInterval,
        extendInterval,
        addNote,
        deleteNote,
        editNote,
        moveNote,
        importTasks,
    };

    Kind kind;
    // Of the task that it was done to, as it was called afterwards; absent where it was to many.
    std::optional<std::string> taskName;
    Edit inverse;
};

}  // namespace hearthmark::store
