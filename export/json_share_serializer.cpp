// SPDX-License-Identifier: MIT
#include "export/json_share_serializer.h"

#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "export/field_texts.h"
#include "export/task_for_json.h"

namespace hearthmark::exporting {

namespace {

constexpr std::size_t kIndentation = 2;
// Room for one interval or note, as a guess.
constexpr std::size_t kElementSize = 288;

// Caught where it all began.
struct EncodingError {};

// By hand: the JSON library writes 1500.0 where the document says 1500, and sets neither the space
// before a colon nor the escape of a slash. Throws EncodingError.
class Encoder {
 public:
    Encoder(std::string& text, std::size_t depth) : text_(text), depth_(depth) {}

    void write(const TaskForJSON& task) {
        open('{');
        member("id", task.id);
        member("creationDate", task.creationDate);
        member("name", task.name);
        member("intervals", task.intervals);
        member("notes", task.notes);
        close('}');
    }

 private:
    void write(const IntervalForJSON& interval) {
        open('{');
        member("id", interval.id);
        member("creationDate", interval.creationDate);
        member("duration", interval.duration);
        member("maxDuration", interval.maxDuration);
        member("state", interval.state);
        close('}');
    }

    void write(const IntervalStateForJSON& state) {
        open('{');
        member("started", state.started);
        member("state", state.state);
        close('}');
    }

    void write(const NoteForJSON& note) {
        open('{');
        member("id", note.id);
        member("creationDate", note.creationDate);
        member("text", note.text);
        close('}');
    }

    template <class Element>
    void write(const std::vector<Element>& elements) {
        open('[');
        for (const Element& element : elements) {
            beginLine();
            write(element);
        }
        close(']');
    }

    void write(base::Date date) { write(date.sinceReferenceDate()); }

    void write(base::Seconds seconds) {
        if (!std::isfinite(seconds.count())) {
            throw EncodingError();
        }
        appendNumber(text_, seconds.count(), WholeNumber::bare);
    }

    void write(std::int16_t number) { text_ += std::to_string(number); }

    void write(const base::Uuid& uuid) {
        text_ += '"';
        text_ += uuid.text();
        text_ += '"';
    }

    void write(const std::string& text) {
        if (!base::isValidUtf8(text)) {
            throw EncodingError();
        }
        text_ += '"';
        for (const char c : text) {
            writeEscaped(c);
        }
        text_ += '"';
    }

    void writeEscaped(char c) {
        switch (c) {
            case '"':
            case '\\':
            case '/':
                (text_ += '\\') += c;
                return;
            case '\b':
                text_ += "\\b";
                return;
            case '\f':
                text_ += "\\f";
                return;
            case '\n':
                text_ += "\\n";
                return;
            case '\r':
                text_ += "\\r";
                return;
            case '\t':
                text_ += "\\t";
                return;
            default:
                break;
        }
        if (const auto code = static_cast<unsigned char>(c); code < 0x20) {
            constexpr std::string_view kHexDigits = "0123456789abcdef";
            ((text_ += "\\u00") += kHexDigits[code / 16]) += kHexDigits[code % 16];
        } else {
            text_ += c;
        }
    }

    template <class Value>
    void member(std::string_view key, const Value& value) {
        beginLine();
        ((text_ += '"') += key) += "\" : ";
        write(value);
    }

    template <class Value>
    void member(std::string_view key, const std::optional<Value>& value) {
        if (value) {
            member(key, *value);
        }
    }

    void open(char bracket) {
        text_ += bracket;
        ++depth_;
        isEmpty_ = true;
    }

    void close(char bracket) {
        --depth_;
        if (isEmpty_) {
            text_ += '\n';
        }
        endLine();
        text_ += bracket;
        isEmpty_ = false;
    }

    void beginLine() {
        if (!isEmpty_) {
            text_ += ',';
        }
        endLine();
        isEmpty_ = false;
    }

    void endLine() {
        text_ += '\n';
        text_.append(depth_ * kIndentation, ' ');
    }

    std::string& text_;
    std::size_t depth_;
    // Whether nothing was written yet since the last bracket was opened.
    bool isEmpty_ = true;
};

}  // namespace

bool appendJSON(std::string& text, const TaskForJSON& task, std::size_t depth) {
    const std::size_t sizeBefore = text.size();
    try {
        Encoder(text, depth).write(task);
        return true;
    } catch (const EncodingError&) {
        text.resize(sizeBefore);
        return false;
    }
}

std::string JSONShareSerializer::serialize(const store::Task& task) const {
    const TaskForJSON values = taskForJSON(task);
    std::string text;
    text.reserve((values.intervals.size() + values.notes.size() + 1) * kElementSize);
    appendJSON(text, values, 0);  // told to nobody where it cannot: the sheet shows an empty text
    return text;
}

}  // namespace hearthmark::exporting
