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
    // Replaces it with both, of which each program takes what it can show. The picture is a PNG;
    // where it is none the text stands alone.
    virtual void setStringAndPicture(const std::string& text, const std::string& png) = 0;
};

}  // namespace hearthmark::services
