// SPDX-License-Identifier: MIT
#include "objectstore/store_error.h"

#include <cerrno>
#include <sstream>
#include <system_error>
#include <utility>

namespace hearthmark::objectstore {

namespace {

StoreError::Cause causeOf(int error) {
    using Cause = StoreError::Cause;
    switch (error) {
        case ENOSPC:
        case EDQUOT:
            return Cause::diskFull;
        case EACCES:
        case EPERM:
        case EROFS:
            return Cause::noAccess;
        case ELOOP:
        case ENAMETOOLONG:
        case ENOENT:
        case ENOTDIR:
            return Cause::noPlace;
        case EISDIR:
            return Cause::notAFile;
        case EIO:
            return Cause::inputOutput;
        default:
            return Cause::other;
    }
}

}  // namespace

StoreError::StoreError(const std::string& description, int code, int extendedCode,
                       std::string statement, Cause cause)
    : std::runtime_error(description),
      code_(code),
      extendedCode_(extendedCode),
      statement_(std::move(statement)),
      cause_(cause) {}

StoreError StoreError::ofCall(std::string call, const std::filesystem::path& path, int error) {
    return {std::generic_category().message(error) + ": " + path.string(), error, error,
            std::move(call), causeOf(error)};
}

std::string StoreError::userInfo() const {
    std::ostringstream text;
    text << "[code: " << code_ << ", extendedCode: " << extendedCode_ << ", statement: \""
         << statement_ << "\"]";
    return text.str();
}

}  // namespace hearthmark::objectstore
