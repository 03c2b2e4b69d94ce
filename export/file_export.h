// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include "export/file_work.h"
#include "export/text_parts.h"

namespace hearthmark::exporting {

struct FileExport {
    enum class Outcome { written, cancelled, failed };

    Outcome outcome = Outcome::written;
    // Why it failed, in a sentence.
    std::string reason;
};

// Writes the text to a file that a person chose: beside it, onto the disk, and then into its place,
// so that it is all there or is what it was, with nothing left over. Follows a link to the file
// that it names. A file that is replaced leaves its mode to the new one; else the umask says it.
// Any thread.
FileExport writeFile(const std::filesystem::path& file, TextParts& text, const FileWork& work);

}  // namespace hearthmark::exporting
