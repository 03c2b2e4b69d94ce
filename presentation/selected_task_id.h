// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/uuid.h"
#include "livedata/current_value_subject.h"

namespace hearthmark::presentation {

// Which task is selected; the one selection of the program. It keeps its id when the task is gone.
using SelectedTaskId = livedata::CurrentValueSubject<std::optional<base::Uuid>>;

}  // namespace hearthmark::presentation
