// SPDX-License-Identifier: MIT
#include "export/csv_task_share_serializer.h"

#include <array>
#include <optional>
#include <string_view>

#include "export/field_texts.h"
#include "store/interval.h"
#include "store/note.h"
#include "store/raw_interval_state.h"

namespace hearthmark::exporting {

namespace {

using namespace std::string_view_literals;

constexpr std::array kTaskColumns{"id"sv, "creationDate"sv, "name"sv};
constexpr std::array kIntervalColumns{"id"sv,          "creationDate"sv,     "duration"sv,
                                      "maxDuration"sv, "rawState.started"sv, "rawState.state"sv};
constexpr std::array kNoteColumns{"id"sv, "creationDate"sv, "text"sv};

// A comma each, for the fields of the other kind of row.
constexpr std::string_view kNoNoteFields = ",,,";
constexpr std::string_view kNoIntervalFields = ",,,,,,";
static_assert(kNoNoteFields.size() == kNoteColumns.size());
static_assert(kNoIntervalFields.size() == kIntervalColumns.size());

// Room for one row, as a guess.
constexpr std::size_t kRowSize = 256;

const std::string& header() {
    static const std::string kHeader = [] {
        std::string header;
        const auto appendColumns = [&header](const auto& columns, std::string_view prefix) {
            for (const std::string_view column : columns) {
                header += header.empty() ? "" : ",";
                header += prefix;
                header += column;
            }
        };
        appendColumns(kTaskColumns, "");
        appendColumns(kIntervalColumns, "interval.");
        appendColumns(kNoteColumns, "note.");
        return header;
    }();
    return kHeader;
}

void append(std::string& row, const std::optional<base::Uuid>& id) {
    if (id) {
        row += id->text();
    }
}

void append(std::string& row, const std::optional<base::Date>& date) {
    if (date) {
        appendDateTime(row, *date);
    }
}

void append(std::string& row, base::Seconds duration) {
    appendNumber(row, duration.count(), WholeNumber::withFraction);
}

void append(std::string& row, const std::optional<std::string>& text) {
    if (text) {
        ((row += '"') += *text) += '"';
    }
}

template <class Value>
void appendField(std::string& row, const Value& value) {
    row += ',';
    append(row, value);
}

std::string taskFields(const store::Task& task) {
    std::string fields;
    append(fields, task.id());
    appendField(fields, task.creationDate());
    appendField(fields, task.name());
    return fields;
}

void appendIntervalFields(std::string& row, const store::Interval& interval) {
    appendField(row, interval.id());
    appendField(row, interval.creationDate());
    appendField(row, interval.duration());
    appendField(row, interval.maxDuration());
    // Nothing stands for a missing state, so the fields after it move two columns to the left: the
    // form is kept as those who read it know it.
    if (const store::RawIntervalState* state = interval.rawState()) {
        appendField(row, state->started());
        (row += ',') += std::to_string(state->state());
    }
    row += kNoNoteFields;
}

void appendNoteFields(std::string& row, const store::Note& note) {
    row += kNoIntervalFields;
    appendField(row, note.id());
    appendField(row, note.creationDate());
    appendField(row, note.text());
}

}  // namespace

std::string CSVTaskShareSerializer::serialize(const store::Task& task) const {
    const std::string fields = taskFields(task);
    std::string text;
    text.reserve((task.intervals().size() + task.notes().size() + 1) * (fields.size() + kRowSize));
    text += header();
    text += '\n';
    std::string_view separator;
    for (const store::Interval* interval : task.intervals()) {
        (text += separator) += fields;
        appendIntervalFields(text, *interval);
        separator = "\n";
    }
    for (const store::Note* note : task.notes()) {
        (text += separator) += fields;
        appendNoteFields(text, *note);
        separator = "\n";
    }
    return text;
}

}  // namespace hearthmark::exporting
