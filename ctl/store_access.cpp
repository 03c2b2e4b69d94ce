// SPDX-License-Identifier: MIT
#include "ctl/store_access.h"

#include "ctl/program_lock.h"
#include "store/persistent_container_factory.h"

namespace hearthmark::ctl {

store::StoreReader openStore() {
    using LeftRunning = store::StoreReader::LeftRunning;
    const auto directory = store::storeDirectory();
    return {directory, isProgramRunning(directory) ? LeftRunning::runs : LeftRunning::isFinished};
}

}  // namespace hearthmark::ctl
