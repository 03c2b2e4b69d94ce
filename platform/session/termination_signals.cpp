// SPDX-License-Identifier: MIT
#include "platform/session/termination_signals.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

namespace hearthmark::platform {

TerminationSignals::TerminationSignals() {
    sigset_t handled;
    sigemptyset(&handled);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&handled, signal);
    }
    pthread_sigmask(SIG_BLOCK, &handled, nullptr);
    descriptor_ = ::signalfd(-1, &handled, SFD_NONBLOCK | SFD_CLOEXEC);
    if (descriptor_ < 0) {
        throw std::system_error(errno, std::generic_category(), "signalfd");
    }
}

TerminationSignals::~TerminationSignals() {
    ::close(descriptor_);
}

std::unique_ptr<QSocketNotifier> TerminationSignals::listen(std::function<void()> onSignal) const {
    auto notifier = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                     [descriptor = descriptor_, act = std::move(onSignal)] {
                         signalfd_siginfo received{};
                         while (::read(descriptor, &received, sizeof received) > 0) {
                             act();
                         }
                     });
    return notifier;
}

}  // namespace hearthmark::platform
