// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

#include "livedata/live_data_providing.h"

namespace hearthmark::livedata {

// Wraps any provider of an entity; consumers store providers in this form only.
template <class Entity>
class AnyCoreDataLiveProvider final : public LiveDataProviding<Entity> {
 public:
    explicit AnyCoreDataLiveProvider(const std::shared_ptr<LiveDataProviding<Entity>>& provider)
        : capturedLiveDataProvider_(provider),
          capturedItems_(provider->currentItems()),
          capturedStartObserving_([wrapped = provider.get()] { wrapped->startObserving(); }) {}

    // Always the same subject.
    std::shared_ptr<CurrentItems<Entity>> currentItems() override { return capturedItems_; }

    void startObserving() override { capturedStartObserving_(); }

 private:
    std::shared_ptr<void> capturedLiveDataProvider_;
    std::shared_ptr<CurrentItems<Entity>> capturedItems_;
    std::function<void()> capturedStartObserving_;
};

}  // namespace hearthmark::livedata
