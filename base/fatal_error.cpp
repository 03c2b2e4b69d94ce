// SPDX-License-Identifier: MIT
#include "base/fatal_error.h"

#include <cstdlib>
#include <iostream>
#include <utility>

namespace hearthmark::base {

FatalErrorHandler::FatalErrorHandler(Report report) : report_(std::move(report)) {}

void FatalErrorHandler::operator()(std::string_view message) const {
    std::cerr << message << std::endl;
    if (report_) {
        report_(message);
    }
    std::abort();
}

}  // namespace hearthmark::base
