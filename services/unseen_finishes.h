// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "livedata/published.h"
#include "services/ports/user_notification_center.h"

namespace hearthmark::services {

// The notifications that the desktop did not take, oldest first, until the person has answered them
// in the window. Main thread.
using UnseenFinishes = livedata::Published<std::vector<NotificationContent>>;

}  // namespace hearthmark::services
