// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace hearthmark::store {

// What has a name.
class NameRepresentable {
 public:
    virtual const std::optional<std::string>& name() const = 0;

 protected:
    ~NameRepresentable() = default;
};

}  // namespace hearthmark::store
