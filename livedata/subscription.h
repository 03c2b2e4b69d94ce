// SPDX-License-Identifier: MIT
#pragma once

#include "objectstore/signal.h"

namespace hearthmark::livedata {

using objectstore::Subscription;

}  // namespace hearthmark::livedata
