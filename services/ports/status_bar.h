// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/date.h"

namespace hearthmark::services {

// How far an interval is, for what an item can show besides its title.
struct StatusItemProgress {
    std::string taskName;
    base::Seconds spent{0};
    // 0 for no limit.
    base::Seconds maximum{0};

    bool operator==(const StatusItemProgress&) const = default;
};

// One of the things that the menu of an item offers beside those of the program itself.
struct StatusMenuEntry {
    // The same for what does the same, also after the menu has changed.
    std::string key;
    std::string text;
    // Of the task that it acts on, as it is; empty for none.
    std::string taskName;
    // Finds out by itself whether it can still be done.
    std::function<void()> choose;
};

// What can be seen of a status item and clicked.
class StatusItemButton {
 public:
    virtual ~StatusItemButton() = default;

    virtual void setTitle(const std::string& title) = 0;
    // Absent while no interval is shown.
    virtual void setProgress(const std::optional<StatusItemProgress>& progress) = 0;
    virtual void setAction(std::function<void()> action) = 0;
    // The entries are asked for when somebody looks at them.
    virtual void setMenu(std::function<std::vector<StatusMenuEntry>()> entries) = 0;
    // They may be others than before.
    virtual void menuChanged() = 0;
};

// An item in the panel of the desktop, for as long as this lives.
class StatusItem {
 public:
    virtual ~StatusItem() = default;

    // Null where the desktop has no place for one.
    virtual StatusItemButton* button() = 0;
};

// As wide as its content needs.
constexpr double kVariableStatusItemLength = -1;

// The panel's place for status items. Main thread.
class StatusBar {
 public:
    virtual ~StatusBar() = default;

    virtual std::unique_ptr<StatusItem> makeStatusItem(double length) = 0;
};

}  // namespace hearthmark::services
