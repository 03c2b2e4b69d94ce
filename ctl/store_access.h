// SPDX-License-Identifier: MIT
#pragma once

#include "store/store_reader.h"

namespace hearthmark::ctl {

// Opens the person's store to read it: what claims to run does so while the program runs. To be let
// go before anything is printed, since whoever reads that may be slow. Throws StoreError.
store::StoreReader openStore();

}  // namespace hearthmark::ctl
