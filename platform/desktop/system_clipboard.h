// SPDX-License-Identifier: MIT
#pragma once

#include "services/ports/clipboard.h"

namespace hearthmark::platform {

// The clipboard of the display. What was copied stays there as long as the program runs, and longer
// where the desktop has a clipboard manager. Requires a QGuiApplication.
class SystemClipboard final : public services::Clipboard {
 public:
    SystemClipboard();

    void setString(const std::string& text) override;
    void setStringAndPicture(const std::string& text, const std::string& png) override;
};

}  // namespace hearthmark::platform
