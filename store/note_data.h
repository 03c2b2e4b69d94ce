// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "base/date.h"
#include "base/uuid.h"

namespace hearthmark::store {

// What a new note is made from.
struct NoteData {
    base::Date creationDate;
    base::Uuid id;
    std::string text;

    bool operator==(const NoteData&) const = default;
};

}  // namespace hearthmark::store
