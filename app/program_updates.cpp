// SPDX-License-Identifier: MIT
#include "app/program_updates.h"

namespace hearthmark::app {

ProgramUpdates programUpdates() {
    return {.feed = HEARTHMARK_UPDATE_FEED,
            .publicKey = HEARTHMARK_UPDATE_PUBLIC_KEY,
            .patience = std::chrono::seconds(30)};
}

}  // namespace hearthmark::app
