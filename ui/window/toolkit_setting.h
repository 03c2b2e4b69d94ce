// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace hearthmark::ui {

// A setting that the toolkit takes from the environment alone, there for as long as this is: what
// the program starts is not to inherit it. What the person has set stays as it is.
class ToolkitSetting {
 public:
    ToolkitSetting(const char* name, const char* value)
        : name_(name), isOurs_(!qEnvironmentVariableIsSet(name)) {
        if (isOurs_) {
            qputenv(name, value);
        }
    }
    ToolkitSetting(const ToolkitSetting&) = delete;
    ToolkitSetting& operator=(const ToolkitSetting&) = delete;
    ~ToolkitSetting() {
        if (isOurs_) {
            qunsetenv(name_);
        }
    }

 private:
    const char* name_;
    bool isOurs_;
};

}  // namespace hearthmark::ui
