// SPDX-License-Identifier: MIT
#include "services/in_step_time_keeping_provider.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "services/owned_timer.h"

namespace hearthmark::services {

// What the timers of one interval follow. Its own timer runs while any of them does.
class InStepTimeKeepingProvider::Beat final : public std::enable_shared_from_this<Beat> {
 public:
    // Starts the timer of a beat.
    using Start = std::function<std::shared_ptr<TimeKeeping>(std::function<void()> fire)>;

    Beat(Start start, bool isResting) : start_(std::move(start)), isResting_(isResting) {}

    std::shared_ptr<TimeKeeping> add(std::function<void()> action) {
        if (followers_.size() == 1) {
            timer_.stop();
        }
        auto follower = std::make_shared<Follower>(weak_from_this(), std::move(action));
        followers_.push_back(follower);
        startOrStop();
        return follower;
    }

    void setResting(bool isResting) {
        if (isResting != std::exchange(isResting_, isResting)) {
            startOrStop();
            if (!isResting) {
                fire();
            }
        }
    }

 private:
    class Follower final : public TimeKeeping {
     public:
        Follower(std::weak_ptr<Beat> beat, std::function<void()> action)
            : beat_(std::move(beat)), action_(std::move(action)) {}

        void invalidate() override {
            if (const auto beat = std::exchange(beat_, {}).lock()) {
                beat->remove(this);
            }
        }

        void fire() const {
            if (!beat_.expired()) {
                action_();
            }
        }

     private:
        // Empty once it is invalidated.
        std::weak_ptr<Beat> beat_;
        std::function<void()> action_;
    };

    // A follower may go, or another come, meanwhile.
    void fire() {
        for (const auto& follower : std::vector(followers_)) {
            follower->fire();
        }
    }

    void remove(const Follower* removed) {
        std::erase_if(followers_, [removed](const auto& each) { return each.get() == removed; });
        startOrStop();
    }

    void startOrStop() {
        if (isResting_ || followers_.empty()) {
            timer_.stop();
        } else if (!timer_) {
            timer_ = start_([beat = shared_from_this()] { beat->fire(); });
        }
    }

    Start start_;
    bool isResting_;
    OwnedTimer timer_;
    std::vector<std::shared_ptr<Follower>> followers_;
};

InStepTimeKeepingProvider::InStepTimeKeepingProvider(
    std::shared_ptr<TimeKeepingProviderProtocol> timeKeepingProvider)
    : timeKeepingProvider_(std::move(timeKeepingProvider)), beats_(std::make_shared<Beats>()) {}

std::shared_ptr<TimeKeeping> InStepTimeKeepingProvider::makeTimer(base::Seconds interval,
                                                                  Repeats repeats,
                                                                  std::function<void()> action) {
    if (repeats == Repeats::no) {
        return timeKeepingProvider_->makeTimer(interval, repeats, std::move(action));
    }
    std::shared_ptr<Beat>& beat = beats_->ofInterval[interval];
    if (!beat) {
        beat = std::make_shared<Beat>(
            [provider = timeKeepingProvider_, interval](std::function<void()> fire) {
                return provider->makeTimer(interval, Repeats::yes, std::move(fire));
            },
            beats_->areResting);
    }
    return beat->add(std::move(action));
}

void InStepTimeKeepingProvider::setResting(bool areResting) {
    beats_->areResting = areResting;
    // What fires may make timers of another interval.
    for (const auto& [interval, beat] : std::map(beats_->ofInterval)) {
        beat->setResting(areResting);
    }
}

}  // namespace hearthmark::services
