// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/uuid.h"
#include "export/everything_form.h"
#include "export/everything_records.h"
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

    // The document; what is before it is none.
    bool hasBegun() const { return hasBegun_; }
    std::vector<store::TaskRecord>& tasks() { return records_.tasks(); }
    // Empty where there is none.
    const std::string& fault() const { return fault_; }

 private:
    using Kind = EverythingForm::Kind;
    using Place = EverythingForm::Place;
    using Member = EverythingForm::Member;
    using Value = EverythingValue;

    // What was begun and not ended yet.
    struct Frame {
        Place place = Place::document;
        // Of an object: a bit for each member, and the one whose value comes.
        std::uint32_t seen = 0;
        const Member* member = nullptr;
    };

    bool take(Kind kind, const Value& value);
    bool begin(Kind kind);
    // What an object or a list is that begins here. Requires: it is expected.
    Place placeInside() const;
    bool isExpected(Kind kind);
    bool fail(const std::string& reason);
    bool failAt(std::size_t line, const std::string& reason);
    void endOf(Place place);
    // Whether the records say so, too.
    bool isPossible();

    const std::size_t& line_;
    std::string fault_;
    std::vector<Frame> frames_;
    bool hasBegun_ = false;

    EverythingRecords records_;
    base::Uuid doneId_;
};

}  // namespace hearthmark::exporting
