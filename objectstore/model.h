// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

namespace hearthmark::objectstore {

class EntityDescription;

// The entities of a store file and the marks by which the file is recognised.
struct Model {
    // SQLite's application_id: whose file it is.
    std::int32_t applicationId;
    // SQLite's user_version: which generation of the schema, from 1 on. It goes up with every new
    // attribute, which has to be an optional one: a file of an older version gets its column when
    // it is opened.
    std::int32_t version;
    // Each after those that it references.
    std::vector<const EntityDescription*> entities;
};

}  // namespace hearthmark::objectstore
