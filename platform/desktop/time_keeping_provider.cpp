// SPDX-License-Identifier: MIT
#include "platform/desktop/time_keeping_provider.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>
#include <chrono>
#include <utility>

namespace hearthmark::platform {

namespace {

class Timer final : public services::TimeKeeping {
 public:
    explicit Timer(QTimer* timer) : timer_(timer) {}

    void invalidate() override {
        if (timer_) {
            timer_->stop();
            // Later, since this may be called by the timer's own action.
            timer_->deleteLater();
            timer_.clear();
        }
    }

 private:
    QPointer<QTimer> timer_;
};

}  // namespace

std::shared_ptr<services::TimeKeeping> TimeKeepingProvider::makeTimer(
    base::Seconds interval, services::Repeats repeats, std::function<void()> action) {
    auto* timer = new QTimer(QCoreApplication::instance());
    timer->setTimerType(Qt::PreciseTimer);
    timer->setSingleShot(repeats == services::Repeats::no);
    QObject::connect(timer, &QTimer::timeout, timer, std::move(action));
    timer->start(std::chrono::round<std::chrono::milliseconds>(interval));
    return std::make_shared<Timer>(timer);
}

}  // namespace hearthmark::platform
