// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "livedata/subscription.h"
#include "objectstore/signal.h"

namespace hearthmark::livedata {

// The failure type of what never fails.
struct Never {
    Never() = delete;
};

// How a publisher ended: finished, or with a failure.
template <class Failure = Never>
struct Completion {
    std::optional<Failure> failure;
};

// What a subject tells its subscribers; the value itself they look at.
enum class SubjectEvent { staged, announced, completed };

// A publisher that always has a value: gives it to each new subscriber at once and then every
// change. All calls are synchronous, on one thread.
//
// A callback may subscribe, end its own or another subscription, set the value again, or destroy
// the subject. Each call hands over the value that is current at that moment: a value that an
// earlier subscriber replaces while it is being told is not told to the later ones any more, so
// nobody sees an older value after a newer one. An exception from a callback reaches whoever set
// the value; the later subscribers of that round are not told.
template <class Output, class Failure = Never>
class CurrentValueSubject {
 public:
    using OnValue = std::function<void(const Output&)>;
    using OnCompletion = std::function<void(const Completion<Failure>&)>;

    explicit CurrentValueSubject(Output value)
        : state_(std::make_shared<State>(State{.value = std::move(value)})) {}
    CurrentValueSubject(const CurrentValueSubject&) = delete;
    CurrentValueSubject& operator=(const CurrentValueSubject&) = delete;
    ~CurrentValueSubject() = default;

    const Output& value() const { return state_->value; }

    void setValue(Output value) {
        stage(std::move(value));
        announce();
    }

    // The two halves of setValue(), for values of several subjects that must all be new before
    // anybody is told: stage() replaces the value here and in the subjects that follow this one,
    // announce() tells the subscribers.
    void stage(Output value) {
        if (state_->completion) {
            return;
        }
        state_->value = std::move(value);
        ++state_->version;
        const std::shared_ptr<State> kept = state_;
        kept->events(SubjectEvent::staged);
    }

    void announce() {
        const std::shared_ptr<State> kept = state_;
        if (kept->isAnnouncing) {
            kept->isAnnouncedAgain = true;  // in another round, after the one under way
            return;
        }
        kept->isAnnouncing = true;
        const std::unique_ptr<State, void (*)(State*)> ending(
            kept.get(), [](State* state) { state->isAnnouncing = false; });
        do {
            kept->isAnnouncedAgain = false;
            kept->events(SubjectEvent::announced);
        } while (kept->isAnnouncedAgain);
    }

    // Ends the subject: the subscribers are told and let go, later values are dropped.
    void complete(Completion<Failure> completion = {}) {
        const std::shared_ptr<State> kept = state_;
        if (kept->completion) {
            return;
        }
        kept->completion = std::move(completion);
        kept->events(SubjectEvent::completed);
        kept->events = {};
    }

    // A completed subject gives its completion instead of its value. `onStaged` is for the subjects
    // that follow this one; it must not call out.
    Subscription subscribe(OnValue onValue, OnCompletion onCompletion = {}, OnValue onStaged = {}) {
        const std::shared_ptr<State> kept = state_;
        if (kept->completion) {
            if (onCompletion) {
                onCompletion(*kept->completion);
            }
            return {};
        }
        auto subscriber = std::make_shared<Subscriber>(
            Subscriber{std::move(onValue), std::move(onCompletion), std::move(onStaged)});
        // By address: the state owns the slot and is kept during each round.
        Subscription subscription =
            kept->events.connect([state = kept.get(), subscriber](SubjectEvent event) {
                subscriber->receive(*state, event);
            });
        subscriber->tell(*kept);
        return subscription;
    }

 private:
    struct State {
        Output value;
        std::optional<Completion<Failure>> completion = std::nullopt;
        // Counts the values; tells who has not seen the newest one.
        std::uint64_t version = 0;
        bool isAnnouncing = false;
        bool isAnnouncedAgain = false;
        objectstore::Signal<SubjectEvent> events = {};
    };

    struct Subscriber {
        OnValue onValue;
        OnCompletion onCompletion;
        OnValue onStaged;
        std::uint64_t seen = 0;

        void tell(const State& state) {
            seen = state.version;
            // A copy: the callback may replace the value that it is looking at.
            const Output value = state.value;
            onValue(value);
        }

        void receive(const State& state, SubjectEvent event) {
            if (event == SubjectEvent::staged) {
                if (onStaged) {
                    onStaged(state.value);
                }
            } else if (event == SubjectEvent::completed) {
                if (onCompletion) {
                    onCompletion(*state.completion);
                }
            } else if (seen != state.version && !state.completion) {
                tell(state);
            }
        }
    };

    std::shared_ptr<State> state_;
};

}  // namespace hearthmark::livedata
