// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <variant>

#include "base/date.h"

namespace hearthmark::store {

// The state of a focus interval. The order of the cases fixes their hashes and their keys in the
// keyed encoding.
class IntervalState {
 public:
    // Not counting. Exists only across a quit: the next launch resumes it.
    struct Paused {
        bool operator==(const Paused&) const = default;
    };
    // Counting since `started`. `visited` is the last moment at which the program saw it run; it
    // may lie before `started`, where it was resumed since.
    struct Running {
        base::Date started;
        std::optional<base::Date> visited;
        bool operator==(const Running&) const = default;
    };
    // Closed for good.
    struct Finished {
        bool operator==(const Finished&) const = default;
    };

    static IntervalState paused() { return IntervalState(Paused{}); }
    static IntervalState running(base::Date started, std::optional<base::Date> visited = {}) {
        return IntervalState(Running{started, visited});
    }
    static IntervalState finished() { return IntervalState(Finished{}); }

    bool isPaused() const { return std::holds_alternative<Paused>(value_); }
    bool isRunning() const { return std::holds_alternative<Running>(value_); }
    bool isFinished() const { return std::holds_alternative<Finished>(value_); }

    // Null unless it is running.
    const Running* asRunning() const { return std::get_if<Running>(&value_); }

    bool operator==(const IntervalState&) const = default;

    std::size_t hash() const;

 private:
    using Value = std::variant<Paused, Running, Finished>;

    explicit IntervalState(Value value) : value_(value) {}

    Value value_;
};

// The codes of the states in the store and in exports. Any other code is no state.
enum class StateCode : std::int16_t { paused = 0, running = 1, finished = 2 };

// What they mean. Absent where the code is unknown, or says running without a start.
std::optional<IntervalState> intervalState(std::int16_t code, std::optional<base::Date> started,
                                           std::optional<base::Date> visited);

// Time spent up to a moment: the duration, and while it runs the stretch since its start, which is
// never less than nothing.
base::Seconds totalDuration(base::Seconds duration, const std::optional<IntervalState>& state,
                            base::Date at);

}  // namespace hearthmark::store

template <>
struct std::hash<hearthmark::store::IntervalState> {
    std::size_t operator()(const hearthmark::store::IntervalState& state) const {
        return state.hash();
    }
};
