// SPDX-License-Identifier: MIT
#include "export/typed_path.h"

#include <algorithm>
#include <system_error>

namespace hearthmark::exporting {

namespace fs = std::filesystem;

std::string shownPath(const fs::path& path, const fs::path& home) {
    const std::string& text = path.native();
    const std::string folder = (home / "").native();
    return home.is_absolute() && text.starts_with(folder) ? "~/" + text.substr(folder.size())
                                                          : text;
}

fs::path typedPath(std::string_view typed, const fs::path& home) {
    if (typed == "~" || typed.starts_with("~/")) {
        typed.remove_prefix(std::min<std::size_t>(typed.size(), 2));
    }
    return home / fs::path(typed);  // an absolute one stands for itself
}

// What cannot be looked at is left to the call that opens it, which says why.
PathFault faultOfFileToWrite(const fs::path& file) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (fs::is_directory(status)) {
        return PathFault::isFolder;
    }
    if (fs::exists(status)) {
        return PathFault::isThere;
    }
    return fs::status(file.parent_path(), error).type() == fs::file_type::not_found
               ? PathFault::noFolder
               : PathFault::none;
}

PathFault faultOfFileToRead(const fs::path& file) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (fs::is_directory(status)) {
        return PathFault::isFolder;
    }
    return status.type() == fs::file_type::not_found ? PathFault::noFile : PathFault::none;
}

}  // namespace hearthmark::exporting
