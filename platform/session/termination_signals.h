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

    // Calls `onSignal` for each signal, also for those that came before, as long as the notifier
    // lives. Requires a QCoreApplication that outlives the notifier.
    [[nodiscard]] std::unique_ptr<QSocketNotifier> listen(std::function<void()> onSignal) const;

 private:
    int descriptor_;
};

}  // namespace hearthmark::platform
