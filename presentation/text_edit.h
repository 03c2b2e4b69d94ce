// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "base/uuid.h"
#include "store/data_operations_service_protocol.h"
#include "store/task.h"

namespace hearthmark::presentation {

// A text of a task that is being edited where it stands.
struct TextEdit {
    // Absent where it is the task's name.
    std::optional<base::Uuid> noteId;
    // As far as it is typed.
    std::string text;

    bool operator==(const TextEdit&) const = default;
};

// What is stored; null where the note is not there.
const std::optional<std::string>* storedText(const TextEdit& edit, const store::Task& task);

// Stores it without the blanks around it, by a save of its own; nothing where that leaves nothing,
// or where it is what is stored.
void saveText(const TextEdit& edit, const store::Task& task,
              store::DataOperationsServiceProtocol& dataOperationsService);

}  // namespace hearthmark::presentation
