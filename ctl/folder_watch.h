// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string_view>

#include "ctl/descriptor.h"

namespace hearthmark::ctl {

// Tells what happens to the files of one folder, for a program that polls.
class FolderWatch {
 public:
    // `events` as inotify names them. A folder that is not there tells nothing.
    FolderWatch(const std::filesystem::path& folder, std::uint32_t events);

    int descriptor() const { return descriptor_.get(); }

    // Takes all that has come, by the names of the files.
    void read(const std::function<void(std::string_view name, std::uint32_t event)>& visit);

 private:
    Descriptor descriptor_;
};

}  // namespace hearthmark::ctl
