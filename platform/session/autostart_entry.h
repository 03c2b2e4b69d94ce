// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include "services/ports/start_at_login.h"

namespace hearthmark::platform {

// The desktop's way to start a program at login: a file of the person's in "autostart". Ours has
// the session bus start the program, which then shows no window; so it can be turned on only where
// the bus knows how to start it. Writes and removes that one file, and only when told to.
class AutostartEntry final : public QObject, public services::StartAtLogin {
    Q_OBJECT

 public:
    AutostartEntry();

    livedata::Published<services::StartAtLoginState>& state() override { return state_; }
    void refresh() override;
    void toggle() override;

 private:
    void lookForService();
    void write();
    void remove();
    void publish(services::StartAtLoginState state);
    void fail(const QString& message);

    QDBusConnection bus_;
    QString directory_;
    QString file_;
    livedata::Published<services::StartAtLoginState> state_;
};

}  // namespace hearthmark::platform
