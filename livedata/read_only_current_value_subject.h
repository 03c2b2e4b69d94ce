// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <utility>

#include "livedata/current_value_subject.h"
#include "livedata/subscription.h"

namespace hearthmark::livedata {

// A current-value subject without the right to change it: follows the subject it wraps, values and
// completion. Either may be destroyed first; a subscription goes on when this is gone.
template <class Output, class Failure = Never>
class ReadOnlyCurrentValueSubject {
 public:
    using Subject = CurrentValueSubject<Output, Failure>;

    explicit ReadOnlyCurrentValueSubject(Subject& wrapped)
        : follower_(std::make_shared<Follower>(wrapped)) {}

    const Output& value() const { return follower_->currentValueSubject.value(); }

    Subscription subscribe(typename Subject::OnValue onValue,
                           typename Subject::OnCompletion onCompletion = {}) {
        return {
            follower_->currentValueSubject.subscribe(std::move(onValue), std::move(onCompletion)),
            follower_};
    }

 private:
    struct Follower {
        explicit Follower(Subject& wrapped)
            : currentValueSubject(wrapped.value()),
              // A value has been staged when it is announced; only the replay on subscription has
              // not, and that one is held already.
              wrappedPublisherObserver(wrapped.subscribe(
                  [this](const Output&) { currentValueSubject.announce(); },
                  [this](const Completion<Failure>& completion) {
                      currentValueSubject.complete(completion);
                  },
                  [this](const Output& value) { currentValueSubject.stage(value); })) {}

        Subject currentValueSubject;
        Subscription wrappedPublisherObserver;
    };

    std::shared_ptr<Follower> follower_;
};

}  // namespace hearthmark::livedata
