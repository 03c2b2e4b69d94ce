// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <chrono>
#include <memory>
#include <string>

namespace hearthmark::platform {

// How a second start reaches the first without a session bus: a datagram socket of the kernel's own
// name space, which leaves no file behind. Both ends speak to processes of this user alone. Main
// thread.
class ActivationSocket final : public QObject {
    Q_OBJECT

 public:
    // What is asked for is told from the event loop. `instance` is the lock's name. Where there can
    // be no socket, a warning says so, and nothing is ever told. Requires a QCoreApplication.
    explicit ActivationSocket(const std::string& instance);
    ~ActivationSocket() override;

 signals:
    // A window is to come to the front. The token may be empty.
    void activationRequested(const QString& activationToken);

 private:
    void receive();

    int descriptor_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

enum class ActivationAnswer { done, noneListens, none };

// Asks the one that listens under the lock's name, and waits for its answer for so long.
ActivationAnswer activateOverSocket(const std::string& instance, const std::string& activationToken,
                                    std::chrono::milliseconds patience);

}  // namespace hearthmark::platform
