// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "base/date.h"
#include "store/persistent_container_factory.h"

namespace hearthmark::store {

// A store in memory with a few believable tasks, for previews and demonstrations: intervals in all
// three states, and notes.
class DemoPersistentContainerFactory final : public PersistentContainerFactoryProtocol {
 public:
    // The tasks are dated back from `now`.
    explicit DemoPersistentContainerFactory(base::Date now) : now_(now) {}

    std::shared_ptr<objectstore::PersistentContainer> makeContainer() const override;

 private:
    base::Date now_;
};

}  // namespace hearthmark::store
