// SPDX-License-Identifier: MIT
#include "export/everything_document.h"

#include <cmath>

#include "export/field_texts.h"
#include "export/json_share_serializer.h"

namespace hearthmark::exporting {

namespace {

constexpr std::size_t kDepthOfTasks = 2;
constexpr std::string_view kLineOfElement = "\n    ";

}  // namespace

EverythingDocument::EverythingDocument(const store::Tasks& tasks) {
    entries_.reserve(tasks.size());
    for (const store::Task& task : tasks) {
        entries_.push_back({.task = taskForJSON(task), .doneDate = task.doneDate()});
    }
}

EverythingDocument::EverythingDocument(const std::vector<store::TaskRecord>& tasks) {
    entries_.reserve(tasks.size());
    for (const store::TaskRecord& task : tasks) {
        entries_.push_back({.task = taskForJSON(task), .doneDate = task.doneDate});
    }
}

bool EverythingDocument::appendNext(std::string& text) {
    const std::size_t part = parts_;
    if (part > entries_.size() + 1) {
        return false;
    }
    ++parts_;
    if (part == 0) {
        ((text += "{\n  \"format\" : \"") += kEverythingFormat) += "\",\n  \"version\" : ";
        (text += std::to_string(kEverythingVersion)) += ",\n  \"tasks\" : [";
    } else if (part <= entries_.size()) {
        appendTask(text, entries_[part - 1]);
    } else {
        text += hasTasks_ ? "\n  ],\n" : "\n\n  ],\n";
        ((text += "  \"done\" : {") += done_.empty() ? "\n" : done_) += "\n  }\n}\n";
    }
    return true;
}

void EverythingDocument::appendTask(std::string& text, const Entry& entry) {
    const std::size_t sizeBefore = text.size();
    (text += hasTasks_ ? "," : "") += kLineOfElement;
    const bool isDateWritable =
        !entry.doneDate || std::isfinite(entry.doneDate->sinceReferenceDate().count());
    if (!isDateWritable || !appendJSON(text, entry.task, kDepthOfTasks)) {
        text.resize(sizeBefore);
        leftOut_.push_back(entry.task.name);
        return;
    }
    hasTasks_ = true;
    if (entry.doneDate && entry.task.id) {
        (done_ += done_.empty() ? "" : ",") += kLineOfElement;
        ((done_ += '"') += entry.task.id->text()) += "\" : ";
        appendNumber(done_, entry.doneDate->sinceReferenceDate().count(), WholeNumber::bare);
    }
}

double EverythingDocument::shareDone() const {
    return static_cast<double>(parts_) / static_cast<double>(entries_.size() + 2);
}

}  // namespace hearthmark::exporting
