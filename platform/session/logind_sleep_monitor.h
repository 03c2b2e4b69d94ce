// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <functional>

#include "services/ports/sleep_monitor.h"

namespace hearthmark::platform {

// Hears from logind on the system bus when the machine sleeps or shuts down, and has it wait for us
// by a delay lock. Main thread.
class LogindSleepMonitor final : public QObject, public services::SleepMonitor {
    Q_OBJECT

 public:
    // `willShutDown` is called from the event loop. The machine waits, for a moment, until this
    // process has ended.
    explicit LogindSleepMonitor(std::function<void()> willShutDown);

    void start(Handlers handlers) override;

 private slots:
    void prepareForSleep(bool isStarting);
    void prepareForShutdown(bool isStarting);
    void disconnected();

 private:
    void takeDelayLock();

    std::function<void()> willShutDown_;
    Handlers handlers_;
    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    bool isAsleep_ = false;
    // Held while the machine is awake.
    QDBusUnixFileDescriptor delayLock_;
};

}  // namespace hearthmark::platform
