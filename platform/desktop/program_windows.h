// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "services/ports/application_windows.h"

namespace hearthmark::platform {

// The toolkit's windows of the ordinary kind: no menus, no tool tips, nothing docked in a panel.
// They are made when they are first asked for. Requires a QGuiApplication.
class ProgramWindows final : public services::ApplicationWindows {
 public:
    // `makeWindows` makes those that are not there yet.
    explicit ProgramWindows(std::function<void()> makeWindows);

    std::vector<std::shared_ptr<services::ApplicationWindow>> windows() const override;

 private:
    std::function<void()> makeWindows_;
};

}  // namespace hearthmark::platform
