// SPDX-License-Identifier: MIT
#include "export/interval_calendar.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "export/field_texts.h"

namespace hearthmark::exporting {

namespace {

constexpr std::size_t kMostOctets = 75;
constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kIdSuffix = "@hearthmark.org";

// 20240101T093000Z; absent for a year that has not four digits, or is none in most calendars.
std::optional<std::string> dateTime(base::Date date) {
    std::string text;
    appendDateTime(text, date);
    constexpr std::string_view kForm = "YYYY-MM-DDThh:mm:ssZ";
    if (text.size() != kForm.size() || text.starts_with('-') || text.starts_with("0000")) {
        return std::nullopt;
    }
    std::erase_if(text, [](char c) { return c == '-' || c == ':'; });
    return text;
}

// A content line, on as many lines as it takes.
void appendLine(std::string& text, std::string_view name, std::string_view value) {
    std::size_t octets = 0;
    for (const std::string_view piece : {name, value}) {
        for (std::size_t begin = 0; begin < piece.size();) {
            std::size_t end = begin + 1;
            while (end < piece.size() && !base::beginsCharacter(piece[end])) {
                ++end;
            }
            if (octets + (end - begin) > kMostOctets) {
                (text += kLineBreak) += ' ';
                octets = 1;
            }
            text += piece.substr(begin, end - begin);
            octets += end - begin;
            begin = end;
        }
    }
    text += kLineBreak;
}

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == '\x7f';
}

std::string escaped(const std::string& name) {
    const std::string text = base::withValidUtf8(name);
    std::string made;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '\\' || c == ';' || c == ',') {
            (made += '\\') += c;
        } else if (c == '\n' || c == '\r') {
            made += "\\n";
            at += text.compare(at, kLineBreak.size(), kLineBreak) == 0 ? 1 : 0;
        } else if (isControl(c) && c != '\t') {
            made += base::kReplacementCharacter;
        } else {
            made += c;
        }
    }
    return made;
}

bool canBeEvent(const IntervalRow& row) {
    return row.id && dateTime(row.start) && dateTime(row.end);
}

// Requires: it can be one.
void appendEvent(std::string& text, const IntervalRow& row) {
    const std::string start = dateTime(row.start).value();
    // Not after the start where less than a second was spent, or a damaged store says so.
    const std::string end = std::max(start, dateTime(row.end).value());
    text += "BEGIN:VEVENT\r\n";
    appendLine(text, "UID:", row.id->text() += kIdSuffix);
    appendLine(text, "DTSTAMP:", end);
    appendLine(text, "DTSTART:", start);
    if (end != start) {
        appendLine(text, "DTEND:", end);
    }
    if (row.taskName) {
        appendLine(text, "SUMMARY:", escaped(*row.taskName));
    }
    text += "END:VEVENT\r\n";
}

}  // namespace

IntervalCalendar::IntervalCalendar(std::vector<IntervalRow> rows)
    : rows_(std::move(rows)),
      leftOut_(std::erase_if(rows_, [](const IntervalRow& row) { return !canBeEvent(row); })) {}

bool IntervalCalendar::appendNext(std::string& text) {
    const std::size_t part = parts_;
    if (part > rows_.size() + 1) {
        return false;
    }
    ++parts_;
    if (part == 0) {
        text +=
            "BEGIN:VCALENDAR\r\n"
            "VERSION:2.0\r\n"
            "PRODID:-//Hearthmark//Hearthmark//EN\r\n";
    } else if (part <= rows_.size()) {
        appendEvent(text, rows_[part - 1]);
    } else {
        text += "END:VCALENDAR\r\n";
    }
    return true;
}

double IntervalCalendar::shareDone() const {
    return static_cast<double>(parts_) / static_cast<double>(rows_.size() + 2);
}

}  // namespace hearthmark::exporting
