// SPDX-License-Identifier: MIT
#pragma once

#include "services/application_windows.h"

namespace hearthmark::platform {

// The toolkit's windows of the ordinary kind: no menus, no tool tips, nothing docked in a panel.
// Requires a QGuiApplication.
class ProgramWindows final : public services::ApplicationWindows {
 public:
    std::vector<std::shared_ptr<services::ApplicationWindow>> windows() const override;
};

}  // namespace hearthmark::platform
