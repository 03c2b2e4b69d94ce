// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

namespace hearthmark::platform {

// Whether the person wants to see no notifications for now. The daemon takes them all the same and
// keeps them in its list. Plasma's says so by a property, where its capabilities name it; GNOME's
// does not, but GNOME's settings do. "No" where neither does. Answers from the event loop, never
// where the context has gone by then. Main thread.
void askWhetherNotificationsAreOff(const QStringList& capabilities, QObject* context,
                                   std::function<void(bool areOff)> onAnswer);

// Answers alike, by the settings portal, whether programs may make sounds; "yes" where it does not
// know.
void askWhetherSoundsAreOn(QObject* context, std::function<void(bool areOn)> onAnswer);

}  // namespace hearthmark::platform
