// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "store/task.h"

// "export" is a keyword of the language.
namespace hearthmark::exporting {

// Turns a stored task, with the intervals and notes that are in its sets, into text. The order of
// intervals and of notes is that of the sets, which is none.
class TaskShareSerializerProtocol {
 public:
    virtual ~TaskShareSerializerProtocol() = default;

    // Empty where the task cannot be written in this form.
    virtual std::string serialize(const store::Task& task) const = 0;
};

}  // namespace hearthmark::exporting
