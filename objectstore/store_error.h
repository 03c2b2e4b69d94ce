// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

namespace hearthmark::objectstore {

// A store that cannot be opened, read or written.
class StoreError : public std::runtime_error {
 public:
    // What is to be done about it depends on it. Only `damaged` says anything against what is in
    // the file; whoever is in doubt says `other`.
    enum class Cause {
        damaged,
        newerVersion,
        unknownVersion,
        otherApplication,
        diskFull,
        held,
        noAccess,
        noPlace,
        notAFile,
        inputOutput,
        other
    };

    // `code` and `extendedCode` are SQLite's result codes, or an errno where `statement` names a
    // system call.
    StoreError(const std::string& description, int code, int extendedCode, std::string statement,
               Cause cause);

    // Of a system call that failed with the errno.
    static StoreError ofCall(std::string call, const std::filesystem::path& path, int error);

    int code() const { return code_; }
    int extendedCode() const { return extendedCode_; }
    const std::string& statement() const { return statement_; }
    Cause cause() const { return cause_; }

    // The details as one line of text, for a message: [code: 11, extendedCode: 11, statement: "…"].
    std::string userInfo() const;

 private:
    int code_;
    int extendedCode_;
    std::string statement_;
    Cause cause_;
};

}  // namespace hearthmark::objectstore
