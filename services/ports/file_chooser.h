// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace hearthmark::services {

// What the files are that a person is asked for.
enum class FileKind { everything, table, calendar };

// Where a person wants a file to be, or which one is meant.
struct FileChoice {
    // Where the desktop has no dialog, or none that works, somebody else has to ask.
    enum class Outcome { chosen, cancelled, noDialog };

    Outcome outcome = Outcome::cancelled;
    // Only where one was chosen.
    std::filesystem::path file;
};

// Asks a person for a file in a dialog of the desktop, who may take an hour to answer. The answer
// comes later, and never within the call; a question that takes the place of one that was not
// answered yet closes that, which then gets no answer. Main thread.
class FileChooser {
 public:
    using Answer = std::function<void(const FileChoice&)>;

    virtual ~FileChooser() = default;

    // A file that is there was asked about before it is answered.
    virtual void chooseFileToWrite(const std::string& title, const std::string& suggestedName,
                                   FileKind kind, Answer answer) = 0;
    virtual void chooseFileToRead(const std::string& title, FileKind kind, Answer answer) = 0;
};

}  // namespace hearthmark::services
