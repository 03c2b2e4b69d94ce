// SPDX-License-Identifier: MIT
#include "presentation/focus_length.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "presentation/task_detail_view_state.h"
#include "store/interval.h"
#include "store/newest_first.h"

namespace hearthmark::presentation {

namespace {

constexpr double kMinute = 60;
constexpr double kHour = 3600;
constexpr std::size_t kMostOffered = 5;

constexpr std::array<std::pair<std::string_view, double>, 11> kUnits{{{"h", kHour},
                                                                      {"hour", kHour},
                                                                      {"hours", kHour},
                                                                      {"m", kMinute},
                                                                      {"min", kMinute},
                                                                      {"minute", kMinute},
                                                                      {"minutes", kMinute},
                                                                      {"s", 1},
                                                                      {"sec", 1},
                                                                      {"second", 1},
                                                                      {"seconds", 1}}};

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isLetter(char character) {
    return (character | ' ') >= 'a' && (character | ' ') <= 'z';
}

// Takes a text apart from its beginning on; what begins with something else stays as it is.
class Parts {
 public:
    explicit Parts(std::string_view text) : rest_(text) {}

    bool isAtEnd() const { return rest_.empty(); }

    std::string_view digits() { return take(isDigit); }

    bool sign(std::string_view signs) {
        const bool isThere = !rest_.empty() && signs.find(rest_.front()) != std::string_view::npos;
        rest_.remove_prefix(isThere ? 1 : 0);
        return isThere;
    }

    // Of the next word, with the white space around it.
    std::optional<double> unit() {
        blanks();
        std::string word(take(isLetter));
        std::ranges::transform(word, word.begin(), [](char letter) { return letter | ' '; });
        const auto* const found =
            std::ranges::find(kUnits, std::string_view(word), &decltype(kUnits)::value_type::first);
        blanks();
        return found != kUnits.end() ? std::optional(found->second) : std::nullopt;
    }

 private:
    void blanks() {
        take([](char character) { return character == ' '; });
    }

    template <class Condition>
    std::string_view take(const Condition& condition) {
        const auto end = std::ranges::find_if_not(rest_, condition);
        const std::string_view taken = rest_.substr(0, std::size_t(end - rest_.begin()));
        rest_.remove_prefix(taken.size());
        return taken;
    }

    std::string_view rest_;
};

// However many digits there are.
double numberOf(std::string_view digits) {
    double number = 0;
    for (const char digit : digits) {
        number = number * 10 + (digit - '0');
    }
    return number;
}

std::optional<double> secondsOfClock(Parts parts) {
    double seconds = numberOf(parts.digits());
    int count = 1;
    for (; parts.sign(":"); ++count) {
        const std::string_view digits = parts.digits();
        if (digits.size() != 2 || numberOf(digits) >= kMinute) {
            return std::nullopt;
        }
        seconds = seconds * kMinute + numberOf(digits);
    }
    const bool isRead = parts.isAtEnd() && count <= 3;
    return isRead ? std::optional(count == 1 ? seconds * kMinute : seconds) : std::nullopt;
}

std::optional<double> secondsOfUnits(Parts parts) {
    double seconds = 0;
    double lastUnit = INFINITY;
    bool isFraction = false;
    for (bool isFirst = true; isFirst || !parts.isAtEnd(); isFirst = false) {
        const std::string_view digits = parts.digits();
        double number = numberOf(digits);
        std::string_view decimals;
        const bool hasSign = parts.sign(".,");
        if (hasSign) {
            decimals = parts.digits();
            number += numberOf(decimals) / std::pow(10, decimals.size());
        }
        const auto unit = parts.unit();
        isFraction |= hasSign;
        if (digits.empty() || (hasSign && decimals.empty()) || !unit || *unit >= lastUnit ||
            (isFraction && !(isFirst && parts.isAtEnd()))) {
            return std::nullopt;
        }
        seconds += number * *unit;
        lastUnit = *unit;
    }
    return seconds;
}

// What somebody could have typed, and not the two of the start buttons. What continues another
// interval has the rest of its length, which is seldom whole.
bool isOwnLength(base::Seconds length) {
    return length >= kShortestFocus && length <= kLongestFocus && length != kShortFocus &&
           length != kLongFocus && std::trunc(length.count()) == length.count();
}

}  // namespace

TypedLength readLength(const std::string& text) {
    using Reading = TypedLength::Reading;
    const std::string trimmed(base::trimmed(text));
    if (trimmed.empty()) {
        return {};
    }
    const Parts parts{trimmed};
    const auto seconds = isDigit(trimmed.back()) ? secondsOfClock(parts) : secondsOfUnits(parts);
    if (!seconds || !isDigit(trimmed.front())) {
        return {.reading = Reading::noLength};
    }
    const base::Seconds length(std::round(*seconds));
    const bool isInRange = length >= kShortestFocus && length <= kLongestFocus;
    return {.reading = isInRange ? Reading::length : Reading::outOfRange, .length = length};
}

std::vector<base::Seconds> newestOwnLengths(const store::Tasks& tasks) {
    // Of each length.
    std::map<base::Seconds, const store::Interval*> newest;
    for (const store::Task& task : tasks) {
        const store::Task::IntervalSummary& intervals = *task.intervalSummary();
        for (const auto* each : {&intervals.running, &intervals.settled->intervals}) {
            std::vector<base::Seconds> found;
            for (const store::Interval* interval : *each) {
                const base::Seconds length = interval->maxDuration();
                if (!isOwnLength(length) || std::ranges::count(found, length) > 0) {
                    continue;
                }
                const auto [place, isNew] = newest.emplace(length, interval);
                if (!isNew && store::NewestFirst()(interval, place->second)) {
                    place->second = interval;
                }
                found.push_back(length);
                // No older one of this task can be among the newest of all.
                if (found.size() == kMostOffered) {
                    break;
                }
            }
        }
    }
    std::vector<std::pair<base::Seconds, const store::Interval*>> lengths(newest.begin(),
                                                                          newest.end());
    std::ranges::sort(lengths, store::NewestFirst(),
                      &std::pair<base::Seconds, const store::Interval*>::second);
    std::vector<base::Seconds> offered;
    for (const auto& [length, interval] : lengths) {
        if (offered.size() < kMostOffered) {
            offered.push_back(length);
        }
    }
    return offered;
}

}  // namespace hearthmark::presentation
