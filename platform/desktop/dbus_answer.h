// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusError>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QLatin1String>
#include <QObject>
#include <utility>

namespace hearthmark::platform {

// Hands the answer of a call, or its error, as a `Reply` (a QDBusPendingReply) to the function,
// from the event loop. Never, where the context has gone by then or there was no bus to call on.
template <class Reply, class OnAnswer>
void whenAnswered(const QDBusPendingCall& call, QObject* context, OnAnswer onAnswer) {
    auto* const watcher = new QDBusPendingCallWatcher(call, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [watcher, onAnswer = std::move(onAnswer)] {
                         watcher->deleteLater();
                         onAnswer(Reply(*watcher));
                     });
}

// Whether nobody has the name that was called, and nobody was started for it.
inline bool isOfNobody(const QDBusError& error) {
    return error.type() == QDBusError::ServiceUnknown ||
           error.name() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner");
}

}  // namespace hearthmark::platform
