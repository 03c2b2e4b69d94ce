// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "objectstore/model.h"
#include "objectstore/sqlite_store.h"

namespace hearthmark::objectstore {

struct AttributeDescription;

// The statements that a model needs, made from its entity descriptions. Names are our own, so they
// are quoted only to keep them apart from SQL words.

// CREATE TABLE and CREATE INDEX for all entities. Each reference has an index: without one, the
// deletion of a row would search the whole referencing table. A row that the context does not know
// to reference a deleted one, as in a file that others wrote, lets go of it rather than refuse it.
std::vector<std::string> creationStatements(const Model& model);

// ALTER TABLE for an attribute that came with a later version of the model.
std::string additionStatement(const EntityDescription& entity,
                              const AttributeDescription& attribute);

// Selects the key, the attributes and the references of all rows, ascending by key.
std::string selection(const EntityDescription& entity);

// The statement of one change; parameters are the columns in order, then the key.
std::string statementFor(const RowChange& change);

}  // namespace hearthmark::objectstore
