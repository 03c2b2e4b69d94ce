// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

#include "export/task_for_json.h"
#include "export/task_share_serializer.h"

namespace hearthmark::exporting {

// One JSON document (RFC 8259) for a task: pretty printed, with dates as seconds since
// 2001-01-01T00:00:00Z and slashes escaped. A number that is not finite, or a text that is not
// UTF-8, cannot be written, and makes the whole text empty. docs/export.md describes the document.
class JSONShareSerializer final : public TaskShareSerializerProtocol {
 public:
    std::string serialize(const store::Task& task) const override;
};

// Appends that text as it stands in a larger document, so many brackets deep. Appends nothing and
// returns false where it cannot be written.
bool appendJSON(std::string& text, const TaskForJSON& task, std::size_t depth);

}  // namespace hearthmark::exporting
