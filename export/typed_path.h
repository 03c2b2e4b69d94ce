// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace hearthmark::exporting {

// As a person reads and types it: "~" stands for the home folder, and what is relative lies in it.
std::string shownPath(const std::filesystem::path& path, const std::filesystem::path& home);
std::filesystem::path typedPath(std::string_view typed, const std::filesystem::path& home);

// What is against a path that was typed, before anything is done.
enum class PathFault { none, empty, isFolder, noFolder, noFile, isThere };

PathFault faultOfFileToWrite(const std::filesystem::path& file);
PathFault faultOfFileToRead(const std::filesystem::path& file);

}  // namespace hearthmark::exporting
