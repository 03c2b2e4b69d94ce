// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusUnixFileDescriptor>
#include <QObject>

#include "services/sleep_monitor.h"

namespace hearthmark::platform {

// Hears of sleep from logind on the system bus, and has the machine wait for it by a delay lock.
// Main thread.
class LogindSleepMonitor final : public QObject, public services::SleepMonitor {
    Q_OBJECT

 public:
    LogindSleepMonitor();

    void start(Handlers handlers) override;

 private slots:
    void prepareForSleep(bool isStarting);
    void disconnected();

 private:
    void takeDelayLock();

    Handlers handlers_;
    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    bool isAsleep_ = false;
    // Held while the machine is awake.
    QDBusUnixFileDescriptor delayLock_;
};

}  // namespace hearthmark::platform
