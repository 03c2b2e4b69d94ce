// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

namespace hearthmark::services {

// The main window, of which the services need to know no more than this.
class HomeViewProtocol {
 public:
    virtual ~HomeViewProtocol() = default;

    // Shows the window, or brings it to the front. The token of the desktop's activation protocol
    // lets it take the focus; it may be empty.
    virtual void show(const std::string& activationToken) = 0;
    virtual void hide() = 0;
    // Instead of hiding it, where the desktop offers no other way to bring it back.
    virtual void minimize() = 0;
    // The display has gone: nothing is drawn from here on.
    virtual void abandon() = 0;
    // These two do what the buttons in the window do. The focus is on the selected task; where none
    // can start, nothing happens.
    virtual void displayAddSheet() = 0;
    virtual void startShortFocus() = 0;
    // Has the desktop point the window out, without giving it the focus.
    virtual void requestAttention() = 0;
};

// Makes the home view, hidden.
class HomeViewFactoryProtocol {
 public:
    virtual ~HomeViewFactoryProtocol() = default;

    virtual std::unique_ptr<HomeViewProtocol> makeHomeView() = 0;
};

}  // namespace hearthmark::services
