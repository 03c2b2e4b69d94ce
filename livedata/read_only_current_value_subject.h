// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

#include "livedata/current_value_subject.h"
#include "livedata/subscription.h"

namespace hearthmark::livedata {

// A current-value subject without the right to change it: follows the subject it wraps, values and
// completion. Either may be destroyed first.
template <class Output, class Failure = Never>
class ReadOnlyCurrentValueSubject {
 public:
    using Subject = CurrentValueSubject<Output, Failure>;

    explicit ReadOnlyCurrentValueSubject(Subject& wrapped)
        : currentValueSubject_(wrapped.value()),
          wrappedPublisherObserver_(wrapped.subscribe(
              [this](const Output& value) { follow(value); },
              [this](const Completion<Failure>& completion) {
                  currentValueSubject_.complete(completion);
              },
              [this](const Output& value) { currentValueSubject_.stage(value); })) {}
    ReadOnlyCurrentValueSubject(const ReadOnlyCurrentValueSubject&) = delete;
    ReadOnlyCurrentValueSubject& operator=(const ReadOnlyCurrentValueSubject&) = delete;

    const Output& value() const { return currentValueSubject_.value(); }

    Subscription subscribe(typename Subject::OnValue onValue,
                           typename Subject::OnCompletion onCompletion = {}) {
        return currentValueSubject_.subscribe(std::move(onValue), std::move(onCompletion));
    }

 private:
    // The value has been staged before it is announced; only the replay on subscription has not.
    void follow(const Output&) { currentValueSubject_.announce(); }

    Subject currentValueSubject_;
    Subscription wrappedPublisherObserver_;
};

}  // namespace hearthmark::livedata
