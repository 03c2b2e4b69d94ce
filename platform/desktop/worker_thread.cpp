// SPDX-License-Identifier: MIT
#include "platform/desktop/worker_thread.h"

#include <system_error>
#include <utility>

namespace hearthmark::platform {

void WorkerThread::run(Work work, std::function<void()> whenDone) {
    const auto runAndTell = [this, work = std::move(work),
                             whenDone = std::move(whenDone)](const std::stop_token& token) {
        work(token);
        QMetaObject::invokeMethod(&context_, whenDone, Qt::QueuedConnection);
    };
    try {
        thread_ = std::jthread(runAndTell);
    } catch (const std::system_error&) {
        runAndTell({});  // no thread is to be had: slow is better than not at all
    }
}

void WorkerThread::stopAndWait() {
    thread_ = {};
}

}  // namespace hearthmark::platform
