// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "base/uuid.h"
#include "store/records.h"

namespace hearthmark::exporting {

// Makes the tasks of a document of everything out of what a parser finds in it, piece by piece.
// Knows every key of the document; what is no part of it is a fault. Each call but the last takes
// one piece and returns false where it is none that belongs there; no other call may follow then.
class EverythingInterpreter {
 public:
    // The line that the parser has reached must outlive this.
    explicit EverythingInterpreter(const std::size_t& line) : line_(line) {}

    bool takeKey(std::string_view key);
    bool takeText(std::string_view text);
    // As it stands in the document.
    bool takeNumber(std::string_view digits);
    // A truth value or null, which stand nowhere.
    bool takeOther();
    bool beginObject();
    bool endObject();
    bool beginArray();
    bool endArray();

    // After the last piece: gives the tasks their dates of being done.
    bool finish();

    std::vector<store::TaskRecord>& tasks() { return tasks_; }
    // Empty where there is none.
    const std::string& fault() const { return fault_; }

 private:
    enum class Kind { text, id, number, wholeNumber, array, object };
    enum class Place { document, tasks, task, intervals, interval, state, notes, note, done };

    struct Value {
        std::string_view text;
        double number = 0;
        base::Uuid id{};
    };

    // A key of an object.
    struct Member {
        std::string_view key;
        Kind kind;
        bool isRequired;
        // What an array or an object is.
        Place inside;
        void (EverythingInterpreter::*set)(const Value& value);
    };

    // What an object is called, and its keys.
    struct Form {
        std::string_view name;
        std::span<const Member> members;
    };

    // What was begun and not ended yet.
    struct Frame {
        Place place = Place::document;
        // Of an object: a bit for each member, and the one whose value comes.
        std::uint32_t seen = 0;
        const Member* member = nullptr;
    };

    struct Done {
        base::Date date;
        std::size_t line;
    };

    static const Form& formOf(Place place);
    static const char* nameOf(Kind kind);

    bool take(Kind kind, const Value& value);
    bool begin(Kind kind);
    // What an object or a list is that begins here. Requires: it is expected.
    Place placeInside() const;
    bool isExpected(Kind kind);
    bool fail(const std::string& reason);
    bool failAt(std::size_t line, const std::string& reason);
    void endOf(Place place);
    bool isNewId(const std::optional<base::Uuid>& id, std::unordered_set<base::Uuid>& ids);

    void setFormat(const Value& value);
    void setVersion(const Value& value);
    void setTaskId(const Value& value);
    void setTaskDate(const Value& value);
    void setTaskName(const Value& value);
    void setIntervalId(const Value& value);
    void setIntervalDate(const Value& value);
    void setDuration(const Value& value);
    void setMaxDuration(const Value& value);
    void setStarted(const Value& value);
    void setState(const Value& value);
    void setNoteId(const Value& value);
    void setNoteDate(const Value& value);
    void setNoteText(const Value& value);

    const std::size_t& line_;
    std::string fault_;
    std::vector<Frame> frames_;

    store::TaskRecord task_;
    store::IntervalRecord interval_;
    store::IntervalRecord::RawState state_;
    store::NoteRecord note_;
    base::Uuid doneId_;

    std::vector<store::TaskRecord> tasks_;
    std::unordered_map<base::Uuid, Done> done_;
    std::unordered_set<base::Uuid> taskIds_;
    std::unordered_set<base::Uuid> intervalIds_;
    std::unordered_set<base::Uuid> noteIds_;
};

}  // namespace hearthmark::exporting
