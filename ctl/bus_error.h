// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace hearthmark::ctl {

// What could not be done by the session bus. The text is a sentence for a person: the program's own
// where it answered.
class BusError : public std::runtime_error {
 public:
    enum class Cause { noBus, notRunning, focusRunning, nothingRuns, tooManyCalls, other };

    BusError(Cause cause, const std::string& sentence) : runtime_error(sentence), cause_(cause) {}

    Cause cause() const { return cause_; }

 private:
    Cause cause_;
};

// How a call was answered where nothing was done.
struct FailedCall {
    // Empty where nobody answered.
    std::string name;
    std::string message;
    // An errno.
    int error = 0;
    // Whether the bus was to start the program for it.
    bool startsProgram = false;
};

// What that means here.
BusError errorOf(const FailedCall& call);

}  // namespace hearthmark::ctl
