// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace hearthmark::services {

// The clipboard that all programs of the desktop share. Main thread only.
class Clipboard {
 public:
    virtual ~Clipboard() = default;

    // Replaces what was there with a plain text, kept byte for byte, UTF-8 or not.
    virtual void setString(const std::string& text) = 0;
};

}  // namespace hearthmark::services
