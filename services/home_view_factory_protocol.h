// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace hearthmark::services {

// The content of the main window, of which the services need to know nothing.
class HomeViewProtocol {
 public:
    virtual ~HomeViewProtocol() = default;
};

// Makes the home view.
class HomeViewFactoryProtocol {
 public:
    virtual ~HomeViewFactoryProtocol() = default;

    virtual std::unique_ptr<HomeViewProtocol> makeHomeView() = 0;
};

}  // namespace hearthmark::services
