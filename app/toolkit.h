// SPDX-License-Identifier: MIT
#pragma once

#include <QGuiApplication>
#include <optional>
#include <string>
#include <vector>

#include "ui/window/toolkit_setting.h"

namespace hearthmark::app {

// What the toolkit is given: which window system it tries first. What the person chose comes after
// it and wins. Not in the environment, which all inherit that this program starts. The toolkit
// takes away what it knows, so these are not main()'s own, with which the program begins anew.
class ToolkitArguments {
 public:
    ToolkitArguments(int argc, char** argv);

    // Both as long as this lives.
    int& count() { return count_; }
    char** data() { return arguments_.data(); }

 private:
    std::string option_ = "-platform";
    std::string platforms_;
    std::vector<char*> arguments_;
    int count_ = 0;
};

// The toolkit, set up for windows of this program.
class Toolkit {
 public:
    Toolkit(int argc, char** argv);

 private:
    ToolkitArguments& prepared();

    ToolkitArguments arguments_;
    // Of a picture that it shares with the X server the toolkit asks, before each change, whether
    // the last one was taken: two wake-ups each second, for a few words that are sent as fast.
    std::optional<ui::ToolkitSetting> withoutSharedPictures_{std::in_place, "QT_XCB_NO_MITSHM",
                                                             "1"};
    QGuiApplication application_;
};

}  // namespace hearthmark::app
