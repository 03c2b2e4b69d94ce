// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QQmlComponent;
class QQmlEngine;
class QQuickWindow;

namespace hearthmark::ui {

class HomeAdapter;

// Loads the main window and all that is in it. Its types take longer than anything else at a start,
// so this can begin, on a thread of the engine's own, before there is anything to show. In the
// thread of the user interface, while the application object lives; the window has to go before the
// loader.
class MainWindowLoader {
 public:
    MainWindowLoader();
    ~MainWindowLoader();
    MainWindowLoader(const MainWindowLoader&) = delete;
    MainWindowLoader& operator=(const MainWindowLoader&) = delete;

    void begin();
    // The window, not shown yet, once all of it is loaded. Ends the program where that is not
    // possible.
    std::unique_ptr<QQuickWindow> makeWindow(HomeAdapter& home);

 private:
    std::unique_ptr<QQmlEngine> engine_;
    std::unique_ptr<QQmlComponent> loading_;
};

}  // namespace hearthmark::ui
