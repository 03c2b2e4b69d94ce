// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

#include "export/everything_records.h"

namespace hearthmark::exporting {

// The objects and lists of a document of everything, and what stands in them: docs/export.md.
struct EverythingForm {
    enum class Kind { text, id, number, wholeNumber, array, object };
    enum class Place { document, tasks, task, intervals, interval, state, notes, note, done };

    // A key of an object.
    struct Member {
        std::string_view key;
        Kind kind;
        bool isRequired;
        // What an array or an object is.
        Place inside;
        void (EverythingRecords::*set)(const EverythingValue& value);
    };

    // Without members where it is a list, or keys of any name.
    static const EverythingForm& of(Place place);
    static const char* nameOf(Kind kind);

    const Member* member(std::string_view key) const;

    std::string_view name;
    std::span<const Member> members;
};

}  // namespace hearthmark::exporting
