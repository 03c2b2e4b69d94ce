// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>

#include "livedata/subscription.h"
#include "objectstore/signal.h"

namespace hearthmark::livedata {

// A property that announces each change before it happens and again after it. On one thread.
template <class Value>
class Published {
 public:
    explicit Published(Value value = {}) : value_(std::move(value)) {}
    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;

    const Value& value() const { return value_; }

    void setValue(Value value) {
        willChange_();
        value_ = std::move(value);
        didChange_();
    }

    // Changes the value where it is and announces nothing: for a change that came from the one who
    // shows it.
    template <class Change>
    void amend(const Change& change) {
        change(value_);
    }

    // While called, value() is still the old one. The views of this program do not ask for it.
    Subscription subscribeWillChange(std::function<void()> onChange) {
        return willChange_.connect(std::move(onChange));
    }

    // What views render from.
    Subscription subscribeDidChange(std::function<void()> onChange) {
        return didChange_.connect(std::move(onChange));
    }

 private:
    Value value_;
    objectstore::Signal<> willChange_;
    objectstore::Signal<> didChange_;
};

}  // namespace hearthmark::livedata
