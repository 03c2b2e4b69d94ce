// SPDX-License-Identifier: MIT
#include "store/unresolved_error.h"

namespace hearthmark::store {

std::string unresolvedError(std::string_view location, const objectstore::StoreError& error) {
    std::string message(location);
    message.append(": Fatal error: Unresolved error ").append(error.what());
    return message.append(", ").append(error.userInfo());
}

}  // namespace hearthmark::store
