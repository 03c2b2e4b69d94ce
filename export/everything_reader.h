// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "export/file_work.h"
#include "store/records.h"

namespace hearthmark::exporting {

// More is not read: ten years take some 15 MB, and what is read is held in memory.
constexpr std::uint64_t kMostBytesRead = 512ULL * 1024 * 1024;

struct EverythingRead {
    enum class Outcome { read, cancelled, refused };

    Outcome outcome = Outcome::refused;
    // As the document has them: states and all.
    std::vector<store::TaskRecord> tasks;
    // Why it is refused, in a sentence; with the line, where one is to blame.
    std::string reason;
};

// Reads a document of everything, and nothing else: the first fault refuses all of it. Any thread.
EverythingRead readEverything(const std::filesystem::path& file, const FileWork& work);
EverythingRead readEverything(std::string_view document);

}  // namespace hearthmark::exporting
