// SPDX-License-Identifier: MIT
#include "export/interval_table.h"

#include <cmath>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "export/field_texts.h"

namespace hearthmark::exporting {

namespace {

constexpr std::string_view kHeader =
    "task.id,task.name,interval.id,start,end,seconds,length,state\r\n";

// What makes a spreadsheet take a cell for a formula.
constexpr std::string_view kBeginningsOfFormulas = "=+-@\t\r";

void appendId(std::string& text, const std::optional<base::Uuid>& id) {
    if (id) {
        text += id->text();
    }
}

// Always in quotes. Readers of C's kind end a text at a NUL.
void appendText(std::string& text, const std::string& cell) {
    text += '"';
    if (!cell.empty() && kBeginningsOfFormulas.find(cell.front()) != std::string_view::npos) {
        text += '\'';
    }
    for (const char c : base::withValidUtf8(cell)) {
        if (c == '\0') {
            text += base::kReplacementCharacter;
        } else {
            text.append(c == '"' ? 2 : 1, c);
        }
    }
    text += '"';
}

void appendSeconds(std::string& text, base::Seconds seconds) {
    if (std::isfinite(seconds.count())) {
        appendNumber(text, seconds.count(), WholeNumber::bare);
    }
}

std::string_view word(const std::optional<store::StateCode>& state) {
    if (!state) {
        return "";
    }
    switch (*state) {
        case store::StateCode::paused:
            return "paused";
        case store::StateCode::running:
            return "running";
        case store::StateCode::finished:
            return "finished";
    }
    return "";
}

void appendRow(std::string& text, const IntervalRow& row, const base::Calendar& calendar) {
    appendId(text, row.taskId);
    text += ',';
    if (row.taskName) {
        appendText(text, *row.taskName);
    }
    text += ',';
    appendId(text, row.id);
    text += ',';
    appendLocalDateTime(text, row.start, calendar);
    text += ',';
    appendLocalDateTime(text, row.end, calendar);
    text += ',';
    appendSeconds(text, row.timeSpent);
    text += ',';
    appendSeconds(text, row.length);
    ((text += ',') += word(row.state)) += "\r\n";
}

}  // namespace

IntervalTable::IntervalTable(std::vector<IntervalRow> rows,
                             std::shared_ptr<const base::Calendar> calendar)
    : rows_(std::move(rows)), calendar_(std::move(calendar)) {}

bool IntervalTable::appendNext(std::string& text) {
    if (!std::exchange(hasHeader_, true)) {
        text += kHeader;
        return true;
    }
    if (written_ == rows_.size()) {
        return false;
    }
    appendRow(text, rows_[written_++], *calendar_);
    return true;
}

double IntervalTable::shareDone() const {
    return rows_.empty() ? 1 : static_cast<double>(written_) / static_cast<double>(rows_.size());
}

}  // namespace hearthmark::exporting
