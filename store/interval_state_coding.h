// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "store/interval_state.h"

namespace hearthmark::store {

// A text that does not hold what it should.
class DecodingError : public std::runtime_error {
 public:
    enum class Kind { dataCorrupted, typeMismatch, keyNotFound };

    DecodingError(Kind kind, const std::string& debugDescription,
                  std::vector<std::string> codingPath);

    Kind kind() const { return kind_; }
    std::string_view debugDescription() const { return what(); }
    // The keys that lead from the top to the value at fault.
    const std::vector<std::string>& codingPath() const { return codingPath_; }

 private:
    Kind kind_;
    std::vector<std::string> codingPath_;
};

// A state as a JSON object with one key, the name of its case, whose value is an object: empty, or
// for a running state with "started" and perhaps "visited" in seconds since the reference date.
// Throws std::domain_error where a date is not finite, which JSON cannot say.
std::string encodeIntervalState(const IntervalState& state);

// Reads what encodeIntervalState() writes; other keys are ignored. Throws DecodingError.
IntervalState decodeIntervalState(std::string_view json);

}  // namespace hearthmark::store
