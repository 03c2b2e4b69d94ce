// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/uuid.h"
#include "platform/notifications/notification_call.h"
#include "services/ports/user_notification_center.h"

namespace hearthmark::platform {

// Posts to the notification daemon on the session bus, by calls that wait for nothing. Main thread.
class DesktopNotificationCenter final : public QObject,
                                        public services::UserNotificationCenter,
                                        protected QDBusContext {
    Q_OBJECT

 public:
    using TaskId = std::optional<base::Uuid>;
    // What the composition root does. All are called from the event loop.
    struct Handlers {
        // A notification was clicked; the token, which may be empty, lets a window take the focus.
        std::function<void(const TaskId&, const std::string& activationToken)> activated;
        // The desktop did not take one that was added, or does not show it for now.
        std::function<void(const services::NotificationContent&)> untaken;
        // The desktop does not play the sound of one.
        std::function<void()> playSound;
        NotificationIcon icon;
    };

    explicit DesktopNotificationCenter(Handlers handlers);

    void setDelegate(services::UserNotificationCenterDelegate& delegate) override;
    // Granted at once.
    void requestAuthorization(services::AuthorizationOptions options,
                              std::function<void(bool isGranted)> completion) override;
    void add(const services::NotificationRequest& request) override;

    // Shows one without asking or delay, which is clicked like any other. Whether the desktop takes
    // it is told to nobody.
    void announce(const services::NotificationContent& content);

    // Whether there is a bus to show one on.
    bool isConnected() const { return bus_.isConnected(); }

    // Posts what still waits, for its delay or for the daemon. Returns when it is on the bus, for a
    // program that ends next.
    void postWaiting();

 private slots:
    void actionInvoked(uint id, const QString& action);
    void activationToken(uint id, const QString& token);
    void notificationClosed(uint id, uint reason);

 private:
    using Content = services::NotificationContent;
    // A number that a daemon gave, by the daemon's name on the bus.
    using Key = std::pair<QString, uint>;
    struct Shown {
        Key key;
        TaskId taskId;
        std::vector<services::NotificationButton> buttons;
        std::string activationToken;
    };

    // Takes a request out of those that wait; absent where it was posted already.
    std::optional<services::NotificationRequest> take(const std::string& identifier);
    void present(const std::string& identifier);
    void post(const Content& content, const QStringList& capabilities);
    // Sends it and remembers what it is of. The callback is told whether the daemon has it.
    void notify(const Content& content, const QStringList& capabilities,
                std::function<void(bool isTaken)> onAnswer);
    // What a daemon gave the number to, once the bus has said which daemon. One that answers and
    // goes within that time has nothing left to click.
    void remember(uint id, const Shown& shown);
    std::vector<Shown>::iterator shownAs(uint id);
    void forget(const Key& key);
    void close(const Key& key);
    void notTaken(const Content& content) const;
    void playSound(const Content& content) const;

    Handlers handlers_;
    QDBusConnection bus_;
    services::UserNotificationCenterDelegate* delegate_ = nullptr;
    // Until it is handed to the daemon.
    std::vector<services::NotificationRequest> waiting_;
    // The last ones, the oldest first. Also those that show no longer: many daemons keep them in a
    // list, where they can be clicked.
    std::vector<Shown> shown_;
};

}  // namespace hearthmark::platform
