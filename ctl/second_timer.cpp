// SPDX-License-Identifier: MIT
#include "ctl/second_timer.h"

#include <sys/timerfd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace hearthmark::ctl {

namespace {

constexpr double kNanosecondsInSecond = 1e9;
// What lies outside is as good as never, and must not overflow.
constexpr double kFarthest = 1e11;

}  // namespace

SecondTimer::SecondTimer()
    : descriptor_(::timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK), "timerfd_create") {}

void SecondTimer::setTo(base::Date moment) {
    const base::Seconds unixTime = moment.sinceReferenceDate() + base::kUnixTimeOfReferenceDate;
    // A time of 0 would stop it.
    const double time = std::clamp(unixTime.count(), 1.0, kFarthest);
    const double whole = std::floor(time);
    itimerspec setting{};
    setting.it_value.tv_sec = static_cast<time_t>(whole);
    setting.it_value.tv_nsec = static_cast<long>((time - whole) * kNanosecondsInSecond);
    ::timerfd_settime(descriptor_.get(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &setting,
                      nullptr);
}

void SecondTimer::stop() {
    const itimerspec never{};
    ::timerfd_settime(descriptor_.get(), 0, &never, nullptr);
}

void SecondTimer::acknowledge() {
    std::uint64_t count = 0;
    // Fails where the clock was set, which is acknowledged all the same.
    [[maybe_unused]] const auto bytes = ::read(descriptor_.get(), &count, sizeof count);
}

}  // namespace hearthmark::ctl
