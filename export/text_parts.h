// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace hearthmark::exporting {

// A long text that is made part by part, so that whoever writes it may stop in between and tell how
// far it is. Made of values alone: any thread may go through it, once.
class TextParts {
 public:
    TextParts() = default;
    TextParts(const TextParts&) = delete;
    TextParts& operator=(const TextParts&) = delete;
    virtual ~TextParts() = default;

    // Appends what comes next; false where all was said already.
    virtual bool appendNext(std::string& text) = 0;

    // Which share of all was said, from 0 to 1.
    virtual double shareDone() const = 0;
};

}  // namespace hearthmark::exporting
