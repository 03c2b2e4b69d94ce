// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
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

}  // namespace hearthmark::platform
