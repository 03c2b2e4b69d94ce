// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace hearthmark::objectstore {

// A store that cannot be opened, read or written.
class StoreError : public std::runtime_error {
 public:
    // `code` and `extendedCode` are SQLite's result codes, or an errno where `statement` names a
    // system call.
    StoreError(const std::string& description, int code, int extendedCode, std::string statement);

    int code() const { return code_; }
    int extendedCode() const { return extendedCode_; }
    const std::string& statement() const { return statement_; }

    // The details as one line of text, for a message: [code: 11, extendedCode: 11, statement: "…"].
    std::string userInfo() const;

 private:
    int code_;
    int extendedCode_;
    std::string statement_;
};

}  // namespace hearthmark::objectstore
