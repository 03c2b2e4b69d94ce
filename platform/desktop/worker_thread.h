// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <thread>

#include "services/ports/background_work.h"

namespace hearthmark::platform {

// Its end stops the work and waits for it; then nothing follows any more.
class WorkerThread final : public services::BackgroundWork {
 public:
    void run(Work work, std::function<void()> whenDone) override;
    void stop() override { thread_.request_stop(); }

    // For the end of the program: nothing is half written when it returns.
    void stopAndWait();

 private:
    // Takes what follows to the main thread.
    QObject context_;
    std::jthread thread_;
};

}  // namespace hearthmark::platform
