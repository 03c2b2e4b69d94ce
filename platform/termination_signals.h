// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace hearthmark::platform {

// Turns SIGTERM, SIGINT and SIGHUP into a call on the event loop, so that they end the program the
// way a person does.
class TerminationSignals {
 public:
    // Blocks the signals for this thread and those that it starts: must come first in main(),
    // before the toolkit makes a thread.
    TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;
    ~TerminationSignals();

    // Calls `onSignal` for each signal, also for those that came before. Requires a
    // QCoreApplication, which must outlive this.
    void listen(std::function<void()> onSignal);

 private:
    int descriptor_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace hearthmark::platform
