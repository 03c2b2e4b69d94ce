// SPDX-License-Identifier: MIT
#include "platform/session/sudden_exit.h"

#include <unistd.h>

#include <QCoreApplication>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <mutex>
#include <thread>
#include <utility>

namespace hearthmark::platform {

namespace {

using namespace std::chrono_literals;

// Of a thread that ends the process, with the main thread: a session that ends waits no longer.
constexpr auto kPatience = 10s;
constexpr auto kLook = 10ms;

enum class State { over, watching, called };

// None is ever destroyed: the process may end at any time.
constinit std::mutex mutex;
constinit State state = State::over;
constinit std::function<void()>* watched = nullptr;
// Children that could not start another program end by _exit() as well, and may find the mutex
// locked for ever.
constinit std::atomic<pid_t> watchedProcess = 0;

bool isMainThread() {
    return ::gettid() == ::getpid();
}

// On the main thread. Returns only where there is nothing to call.
void callAndEnd() {
    {
        const std::lock_guard lock(mutex);
        if (state != State::watching) {
            return;
        }
        state = State::called;
    }
    (*watched)();
    // At once: other threads may still use what would be destroyed next.
    std::_Exit(EXIT_FAILURE);
}

// On another thread. Returns where the main thread has ended its work the ordinary way meanwhile,
// or does not come to its end, since it may wait for this thread.
void haveMainThreadCallAndEnd() {
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    std::unique_lock lock(mutex);
    if (state == State::watching) {
        QMetaObject::invokeMethod(qApp, &callAndEnd, Qt::QueuedConnection);
    }
    while (state != State::over) {
        if (std::chrono::steady_clock::now() > deadline) {
            qWarning("The display went away at a bad moment: the last time of what ran is lost.");
            return;
        }
        lock.unlock();
        std::this_thread::sleep_for(kLook);
        lock.lock();
    }
}

void handleExit() {
    if (isMainThread()) {
        callAndEnd();
    }
}

}  // namespace

SuddenExit::SuddenExit(std::function<void()> onExit) : onExit_(std::move(onExit)) {
    const std::lock_guard lock(mutex);
    state = State::watching;
    watched = &onExit_;
    watchedProcess = ::getpid();
    std::atexit(&handleExit);
}

SuddenExit::~SuddenExit() {
    const std::lock_guard lock(mutex);
    state = State::over;
    watchedProcess = 0;
}

void SuddenExit::handleImmediateExit() {
    if (watchedProcess != ::getpid()) {
        return;
    }
    if (isMainThread()) {
        callAndEnd();
    } else {
        haveMainThreadCallAndEnd();
    }
}

}  // namespace hearthmark::platform

// Takes the place of the system's own in the whole process, the toolkit's Wayland plugin included.
// NOLINTNEXTLINE(bugprone-reserved-identifier,*-identifier-naming): the system's name
extern "C" [[gnu::visibility("default")]] void _exit(int status) {
    hearthmark::platform::SuddenExit::handleImmediateExit();
    std::_Exit(status);
}
