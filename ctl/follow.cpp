// SPDX-License-Identifier: MIT
#include "ctl/follow.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <csignal>
#include <iostream>
#include <optional>
#include <streambuf>
#include <system_error>
#include <utility>

#include "base/clock.h"
#include "ctl/second_timer.h"
#include "ctl/status_source.h"
#include "ctl/time_awake.h"

namespace hearthmark::ctl {

namespace {

using std::chrono::microseconds;

// What the program needs at most to take the time asleep out, once the machine has woken.
constexpr std::chrono::seconds kWaking{2};
constexpr std::chrono::seconds kSlept{1};
// Beyond the second, so that no rounding falls short of it.
constexpr base::Seconds kBeyond{0.001};
constexpr double kMostSeconds = 1e15;

// Takes what nobody reads.
class Nowhere final : public std::streambuf {
 protected:
    int_type overflow(int_type character) override { return traits_type::not_eof(character); }
};

class Follower {
 public:
    Follower(const std::filesystem::path& storeDirectory, StatusForm form)
        : form_(form), source_(storeDirectory) {}

    // Until nobody reads any more. What the last line failed with, or 0.
    int run() {
        do {
            source_.process();
        } while (show() && await());
        return error_;
    }

 private:
    struct Shown {
        bool operator==(const Shown&) const = default;

        std::optional<FocusStatus> status;
        double wholeSeconds;
    };

    bool show();
    bool await();
    bool isWaking(const Shown& present);

    StatusForm form_;
    StatusSource source_;
    SecondTimer timer_;
    std::optional<Shown> shown_;
    microseconds asleep_ = timeAsleep();
    std::optional<microseconds> wakesUntil_;
    int error_ = 0;
};

// False where nobody reads any more.
bool Follower::show() {
    if (!source_.isKnown()) {
        return true;
    }
    const base::Date now = base::SystemClock().now();
    const std::optional<FocusStatus>& status = source_.status();
    const bool isRunning = status && !status->isInterrupted;
    const double whole = isRunning ? std::floor(timeSpent(*status, now).count()) : 0;
    Shown present{.status = status, .wholeSeconds = whole};
    if (isWaking(present)) {
        return true;
    }
    if (shown_ != present) {
        shown_ = std::move(present);
        std::cout << statusLine(status, now, form_) << std::flush;
        error_ = std::cout ? 0 : errno;
    }
    // Beyond, a number counts no seconds any more.
    if (isRunning && std::abs(whole) < kMostSeconds) {
        timer_.setTo(status->start + (base::Seconds(whole + 1) - status->spentBefore + kBeyond));
    } else {
        timer_.stop();
    }
    return static_cast<bool>(std::cout);
}

// After a sleep nothing is counted until the program has said how long it was.
bool Follower::isWaking(const Shown& present) {
    const microseconds asleep = timeAsleep();
    if (asleep - asleep_ > kSlept) {
        asleep_ = asleep;
        wakesUntil_ = timeAwake() + kWaking;
    }
    if (wakesUntil_ &&
        (timeAwake() >= *wakesUntil_ || !shown_ || shown_->status != present.status)) {
        wakesUntil_.reset();
    }
    return wakesUntil_.has_value();
}

// Until there is something to do. False where nobody reads any more.
bool Follower::await() {
    std::array<pollfd, 5> polled{};
    const auto rest = std::ranges::copy(source_.polled(), polled.begin()).out;
    rest[0] = {.fd = timer_.descriptor(), .events = POLLIN, .revents = 0};
    // It is told in any case when its reader goes.
    rest[1] = {.fd = STDOUT_FILENO, .events = 0, .revents = 0};

    std::optional<microseconds> until = source_.timeout();
    if (wakesUntil_) {
        until = std::min(until.value_or(*wakesUntil_), *wakesUntil_);
    }
    timespec wait{};
    if (until) {
        const auto left = std::max(*until - timeAwake(), microseconds(0));
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
        wait = {.tv_sec = seconds.count(),
                .tv_nsec = std::chrono::nanoseconds(left - seconds).count()};
    }
    if (::ppoll(polled.data(), polled.size(), until ? &wait : nullptr, nullptr) < 0 &&
        errno != EINTR) {
        throw std::system_error(errno, std::generic_category(), "ppoll");
    }
    if (rest[0].revents != 0) {
        timer_.acknowledge();
    }
    return rest[1].revents == 0;
}

}  // namespace

void follow(const std::filesystem::path& storeDirectory, StatusForm form) {
    // That the reader has gone is an answer of the call that writes.
    std::signal(SIGPIPE, SIG_IGN);
    if (Follower(storeDirectory, form).run() == EPIPE) {
        // The line that nobody took is not tried again.
        static Nowhere nowhere;
        std::cout.rdbuf(&nowhere);
    }
}

}  // namespace hearthmark::ctl
