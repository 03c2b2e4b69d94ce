// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "livedata/published.h"
#include "livedata/subscription.h"
#include "services/ports/updater.h"

namespace hearthmark::presentation {

// Tells the menu item whether it can be used: follows the updater from its construction on. Main
// thread.
class CheckForUpdatesViewModel final {
 public:
    explicit CheckForUpdatesViewModel(std::shared_ptr<services::Updater> updater);

    livedata::Published<bool>& canCheckForUpdates() { return canCheckForUpdates_; }

 private:
    livedata::Published<bool> canCheckForUpdates_{false};
    std::shared_ptr<services::Updater> updater_;
    livedata::Subscription subscription_;
};

}  // namespace hearthmark::presentation
