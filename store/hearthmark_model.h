// SPDX-License-Identifier: MIT
#pragma once

#include "objectstore/model.h"

namespace hearthmark::store {

// The model `Hearthmark`: its four entities, and the marks of its file.
objectstore::Model hearthmarkModel();

}  // namespace hearthmark::store
