// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "export/task_for_json.h"
#include "export/text_parts.h"
#include "store/live_data.h"

namespace hearthmark::exporting {

// What a document of everything says that it is.
constexpr std::string_view kEverythingFormat = "org.hearthmark.everything";
constexpr int kEverythingVersion = 1;

// All tasks as one JSON document, each as the share sheet has it, and when they were done;
// docs/export.md describes it. A task that cannot be written leaves the rest whole.
class EverythingDocument final : public TextParts {
 public:
    // Main thread, as the one place that looks at the store.
    explicit EverythingDocument(const store::Tasks& tasks);
    // Of a store that was not opened; anywhere.
    explicit EverythingDocument(const std::vector<store::TaskRecord>& tasks);

    bool appendNext(std::string& text) override;
    double shareDone() const override;

    // The names of those that could not be written, once all was said.
    const std::vector<std::optional<std::string>>& leftOut() const { return leftOut_; }

 private:
    struct Entry {
        TaskForJSON task;
        std::optional<base::Date> doneDate;
    };

    void appendTask(std::string& text, const Entry& entry);

    std::vector<Entry> entries_;
    std::vector<std::optional<std::string>> leftOut_;
    // Of the tasks that were written.
    std::string done_;
    // The beginning, the tasks, and the end.
    std::size_t parts_ = 0;
    bool hasTasks_ = false;
};

}  // namespace hearthmark::exporting
