// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/clock.h"
#include "services/ports/status_bar.h"
#include "services/ports/time_keeping.h"
#include "services/ports/user_notification_center.h"

namespace hearthmark::tests {

constexpr base::Date at(double seconds) {
    return base::Date(base::Seconds(seconds));
}

// Stands still, or goes on by a step at each reading.
struct FakeClock final : base::Clock {
    base::Date now() const override { return std::exchange(time, time + step); }

    mutable base::Date time = at(1000);
    base::Seconds step{0};
};

// Timers that fire when the test says so, and as often as they were asked to.
struct FakeTimeKeepingProvider final : services::TimeKeepingProviderProtocol {
    struct Timer final : services::TimeKeeping {
        void invalidate() override { isValid = false; }

        base::Seconds interval{0};
        services::Repeats repeats = services::Repeats::no;
        std::function<void()> action;
        bool isValid = true;
    };

    std::shared_ptr<services::TimeKeeping> makeTimer(base::Seconds interval,
                                                     services::Repeats repeats,
                                                     std::function<void()> action) override {
        timers.push_back(std::make_shared<Timer>());
        timers.back()->interval = interval;
        timers.back()->repeats = repeats;
        timers.back()->action = std::move(action);
        return timers.back();
    }

    // Lets every valid timer fire once.
    void fire() const {
        for (const auto& timer : std::vector(timers)) {
            if (timer->isValid) {
                timer->isValid = timer->repeats == services::Repeats::yes;
                timer->action();
            }
        }
    }

    auto validTimers() const {
        return std::ranges::count_if(timers, [](const auto& timer) { return timer->isValid; });
    }

    std::vector<std::shared_ptr<Timer>> timers;
};

// Takes every notification.
struct FakeNotificationCenter final : services::UserNotificationCenter {
    void setDelegate(services::UserNotificationCenterDelegate& /*delegate*/) override {}
    void requestAuthorization(services::AuthorizationOptions /*options*/,
                              std::function<void(bool)> completion) override {
        completion(true);
    }
    void add(const services::NotificationRequest& request) override { added.push_back(request); }

    std::vector<services::NotificationRequest> added;
};

// With one item.
struct FakeStatusBar final : services::StatusBar, services::StatusItemButton {
    struct Item final : services::StatusItem {
        explicit Item(StatusItemButton* itsButton) : shown(itsButton) {}
        services::StatusItemButton* button() override { return shown; }

        StatusItemButton* shown;
    };

    std::unique_ptr<services::StatusItem> makeStatusItem(double /*length*/) override {
        return std::make_unique<Item>(this);
    }
    void setTitle(const std::string& newTitle) override { title = newTitle; }
    void setProgress(const std::optional<services::StatusItemProgress>& newProgress) override {
        progress = newProgress;
    }
    void setAction(std::function<void()> /*action*/) override {}
    void setMenu(std::function<std::vector<services::StatusMenuEntry>()> newEntries) override {
        entries = std::move(newEntries);
    }
    void menuChanged() override { ++menuChanges; }

    std::string title;
    std::optional<services::StatusItemProgress> progress;
    std::function<std::vector<services::StatusMenuEntry>()> entries;
    int menuChanges = 0;
};

}  // namespace hearthmark::tests
