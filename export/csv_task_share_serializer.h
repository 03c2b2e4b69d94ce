// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "export/task_share_serializer.h"

namespace hearthmark::exporting {

// A line for each interval and then one for each note, after a header; each line repeats the task's
// own fields. Never empty. Texts stand in quotes and nothing in them is escaped, and an interval
// without a state has fewer fields: that is the form, which docs/export.md fixes.
class CSVTaskShareSerializer final : public TaskShareSerializerProtocol {
 public:
    std::string serialize(const store::Task& task) const override;
};

}  // namespace hearthmark::exporting
