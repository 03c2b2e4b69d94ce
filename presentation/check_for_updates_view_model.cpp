// SPDX-License-Identifier: MIT
#include "presentation/check_for_updates_view_model.h"

#include <utility>

namespace hearthmark::presentation {

CheckForUpdatesViewModel::CheckForUpdatesViewModel(std::shared_ptr<services::Updater> updater)
    : updater_(std::move(updater)) {
    const auto follow = [this] {
        canCheckForUpdates_.setValue(updater_->canCheckForUpdates().value());
    };
    subscription_ = updater_->canCheckForUpdates().subscribeDidChange(follow);
    follow();
}

}  // namespace hearthmark::presentation
