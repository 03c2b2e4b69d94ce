// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <stdexcept>

#include "livedata/live_data_providing.h"

namespace hearthmark::livedata {

// A provider for previews: whoever builds one sets its items and what starting does.
template <class Entity>
class FakeCoreDataLiveProvider final : public LiveDataProviding<Entity> {
 public:
    // Throws std::logic_error where no items were set.
    std::shared_ptr<CurrentItems<Entity>> currentItems() override {
        if (!fakeItems) {
            throw std::logic_error("FakeCoreDataLiveProvider: fakeItems was never set");
        }
        return fakeItems;
    }

    void startObserving() override {
        if (fakeStartObserving) {
            fakeStartObserving();
        }
    }

    std::shared_ptr<CurrentItems<Entity>> fakeItems;
    std::function<void()> fakeStartObserving;
};

}  // namespace hearthmark::livedata
