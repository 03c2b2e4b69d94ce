// SPDX-License-Identifier: MIT
#include "platform/notifications/desktop_notification_center.h"

#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QTimer>
#include <QVariantMap>
#include <algorithm>
#include <chrono>
#include <cmath>

#include "platform/desktop/dbus_answer.h"
#include "platform/notifications/desktop_quiet.h"

namespace hearthmark::platform {

namespace {

using services::NotificationSound;
using services::PresentationOptions;

// As long as the daemon thinks right.
constexpr int kDefaultExpiration = -1;
constexpr auto kDefaultAction = "default";
// Of the sound naming standard of the desktops.
constexpr auto kSoundName = "complete";
// More than a day's finishes.
constexpr std::size_t kMostRemembered = 50;
// Why a notification was closed, by the desktop notifications' own numbers.
constexpr uint kExpired = 1;
// That of a daemon which shows buttons.
constexpr QLatin1String kActions("actions");

DesktopNotification notification(const services::NotificationContent& content,
                                 const QStringList& actions) {
    QVariantMap hints;
    if (content.sound == NotificationSound::standard) {
        hints.insert(QStringLiteral("sound-name"), QLatin1String(kSoundName));
    }
    return {.title = QString::fromStdString(content.title),
            .body = QString::fromStdString(content.body),
            .actions = actions,
            .hints = hints,
            .expiration = kDefaultExpiration};
}

}  // namespace

DesktopNotificationCenter::DesktopNotificationCenter(Handlers handlers)
    : handlers_(std::move(handlers)), bus_(QDBusConnection::sessionBus()) {
    const auto listen = [this](const char* signal, const char* slot) {
        if (bus_.isConnected() && !bus_.connect({}, kNotificationsPath, kNotifications,
                                                QLatin1String(signal), this, slot)) {
            qWarning("The signal %s of the notifications cannot be heard.", signal);
        }
    };
    listen("ActionInvoked", SLOT(actionInvoked(uint, QString)));
    listen("ActivationToken", SLOT(activationToken(uint, QString)));
    listen("NotificationClosed", SLOT(notificationClosed(uint, uint)));
}

void DesktopNotificationCenter::setDelegate(services::UserNotificationCenterDelegate& delegate) {
    delegate_ = &delegate;
}

void DesktopNotificationCenter::requestAuthorization(
    services::AuthorizationOptions /*options*/, std::function<void(bool isGranted)> completion) {
    completion(true);
}

void DesktopNotificationCenter::add(const services::NotificationRequest& request) {
    waiting_.push_back(request);
    const std::chrono::milliseconds delay(std::llround(request.delay.count() * 1000));
    QTimer::singleShot(delay, this,
                       [this, identifier = request.identifier] { present(identifier); });
}

void DesktopNotificationCenter::announce(const Content& content) {
    if (bus_.isConnected()) {
        notify(content, {}, [](bool /*isTaken*/) {});
    }
}

void DesktopNotificationCenter::postWaiting() {
    if (!bus_.isConnected()) {
        return;
    }
    for (const services::NotificationRequest& request : std::exchange(waiting_, {})) {
        // Nobody would be left to answer a click.
        bus_.send(notifyCall(notification(request.content, {}), {}, handlers_.icon));
    }
    // Its answer comes after all that was sent before has gone.
    bus_.call(QDBusMessage::createMethodCall(
                  QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                  QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping")),
              QDBus::Block, kDaemonPatienceMilliseconds);
}

std::optional<services::NotificationRequest> DesktopNotificationCenter::take(
    const std::string& identifier) {
    const auto found =
        std::ranges::find(waiting_, identifier, &services::NotificationRequest::identifier);
    if (found == waiting_.end()) {
        return std::nullopt;
    }
    services::NotificationRequest request = std::move(*found);
    waiting_.erase(found);
    return request;
}

void DesktopNotificationCenter::present(const std::string& identifier) {
    auto request = take(identifier);
    if (!request) {
        return;
    }
    if (delegate_ != nullptr && QGuiApplication::applicationState() == Qt::ApplicationActive) {
        const PresentationOptions options = delegate_->willPresent(*request);
        if (!includes(options, PresentationOptions::banner)) {
            return;
        }
        if (!includes(options, PresentationOptions::sound)) {
            request->content.sound = NotificationSound::none;
        }
    }
    if (!bus_.isConnected()) {
        // A call on a bus that is not there is never answered.
        return notTaken(request->content);
    }
    waiting_.push_back(*std::move(request));
    using Answer = QDBusPendingReply<QStringList>;
    const QDBusPendingCall call =
        bus_.asyncCall(notificationCall("GetCapabilities"), kDaemonPatienceMilliseconds);
    whenAnswered<Answer>(call, this, [this, identifier](const Answer& reply) {
        const auto answered = take(identifier);
        if (answered && reply.isError()) {
            notTaken(answered->content);
        } else if (answered) {
            post(answered->content, reply.value());
        }
    });
}

void DesktopNotificationCenter::post(const Content& content, const QStringList& capabilities) {
    const bool isSilent = !capabilities.contains(QLatin1String("sound"));
    notify(content, capabilities, [this, content, capabilities, isSilent](bool isTaken) {
        if (!isTaken) {
            notTaken(content);
            return;
        }
        askWhetherNotificationsAreOff(capabilities, this, [this, content, isSilent](bool areOff) {
            if (areOff) {
                handlers_.untaken(content);
            } else if (isSilent) {
                playSound(content);
            }
        });
    });
}

void DesktopNotificationCenter::notify(const Content& content, const QStringList& capabilities,
                                       std::function<void(bool isTaken)> onAnswer) {
    QStringList actions{QLatin1String(kDefaultAction), QObject::tr("Show")};
    Shown shown{.key = {}, .taskId = content.taskId, .buttons = {}, .activationToken = {}};
    if (capabilities.contains(kActions)) {
        shown.buttons = content.buttons;
    }
    for (const services::NotificationButton& button : shown.buttons) {
        actions << QString::fromStdString(button.key) << QString::fromStdString(button.text);
    }
    const QDBusMessage call =
        notifyCall(notification(content, actions), capabilities, handlers_.icon);
    using Answer = QDBusPendingReply<uint>;
    whenAnswered<Answer>(
        bus_.asyncCall(call, kDaemonPatienceMilliseconds), this,
        [this, shown = std::move(shown), onAnswer = std::move(onAnswer)](const Answer& reply) {
            if (!reply.isError()) {
                remember(reply.value(), shown);
            }
            onAnswer(!reply.isError());
        });
}

// An answer itself says whom it is from only in some versions of the toolkit.
void DesktopNotificationCenter::remember(uint id, const Shown& shown) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetNameOwner"));
    call << QLatin1String(kNotifications);
    using Answer = QDBusPendingReply<QString>;
    whenAnswered<Answer>(bus_.asyncCall(call), this, [this, id, shown](const Answer& owner) {
        if (owner.isError()) {
            return;
        }
        const Key key{owner.value(), id};
        forget(key);
        if (shown_.size() == kMostRemembered) {
            shown_.erase(shown_.begin());
        }
        shown_.push_back(shown);
        shown_.back().key = key;
    });
}

std::vector<DesktopNotificationCenter::Shown>::iterator DesktopNotificationCenter::shownAs(
    uint id) {
    return std::ranges::find(shown_, Key{message().service(), id}, &Shown::key);
}

void DesktopNotificationCenter::forget(const Key& key) {
    std::erase_if(shown_, [&key](const Shown& shown) { return shown.key == key; });
}

void DesktopNotificationCenter::notTaken(const Content& content) const {
    playSound(content);
    handlers_.untaken(content);
}

void DesktopNotificationCenter::playSound(const Content& content) const {
    if (content.sound == NotificationSound::standard) {
        handlers_.playSound();
    }
}

void DesktopNotificationCenter::actionInvoked(uint id, const QString& action) {
    const auto found = shownAs(id);
    if (found == shown_.end()) {
        return;
    }
    // A copy, since anything may happen meanwhile.
    const Shown shown = *found;
    if (action == QLatin1String(kDefaultAction)) {
        handlers_.activated(shown.taskId, shown.activationToken);
        return;
    }
    const auto button =
        std::ranges::find(shown.buttons, action.toStdString(), &services::NotificationButton::key);
    if (button != shown.buttons.end()) {
        close(shown.key);
        (*button->onTap)();
    }
}

// A second press of what is still on the screen does nothing.
void DesktopNotificationCenter::close(const Key& key) {
    forget(key);
    QDBusMessage call = QDBusMessage::createMethodCall(
        key.first, kNotificationsPath, kNotifications, QStringLiteral("CloseNotification"));
    call << key.second;
    bus_.send(call);
}

void DesktopNotificationCenter::activationToken(uint id, const QString& token) {
    const auto found = shownAs(id);
    if (found != shown_.end()) {
        found->activationToken = token.toStdString();
    }
}

// One that has expired is still clicked where the daemon keeps it; of one that was taken from its
// list Plasma says the same, before it says what was pressed there.
void DesktopNotificationCenter::notificationClosed(uint id, uint reason) {
    if (reason != kExpired) {
        forget({message().service(), id});
    }
}

}  // namespace hearthmark::platform
