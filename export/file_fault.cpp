// SPDX-License-Identifier: MIT
#include "export/file_fault.h"

#include "store/store_fault.h"

namespace hearthmark::exporting {

std::string reasonOf(const objectstore::StoreError& error, const std::filesystem::path& file) {
    if (error.cause() == objectstore::StoreError::Cause::notAFile) {
        return "A folder, or something else that is not a file, has that name.";
    }
    const std::string_view reason = store::faultOf(error, file.parent_path()).reason;
    return reason.empty() ? std::string(error.what()) + '.' : std::string(reason);
}

}  // namespace hearthmark::exporting
