// SPDX-License-Identifier: MIT
#include "objectstore/store_error.h"

#include <sstream>
#include <utility>

namespace hearthmark::objectstore {

StoreError::StoreError(const std::string& description, int code, int extendedCode,
                       std::string statement)
    : std::runtime_error(description),
      code_(code),
      extendedCode_(extendedCode),
      statement_(std::move(statement)) {}

std::string StoreError::userInfo() const {
    std::ostringstream text;
    text << "[code: " << code_ << ", extendedCode: " << extendedCode_ << ", statement: \""
         << statement_ << "\"]";
    return text.str();
}

}  // namespace hearthmark::objectstore
