// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusContext>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include "platform/session/call_gate.h"

namespace hearthmark::platform {

// The program's name on the session bus, the id of its desktop entry and its application object.
inline constexpr auto kApplicationId = "org.hearthmark.Hearthmark";
inline constexpr auto kApplicationObjectPath = "/org/hearthmark/Hearthmark";

// What the desktop entry offers besides the window.
enum class ApplicationAction { addTask, startShortFocus, quit };

// This process as others on the session bus see it: org.freedesktop.Application, by which a second
// start asks for the window of the first, and the desktop for what its entry offers. Calls that
// came before the event loop runs are answered by it.
class ApplicationObject final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
    ApplicationObject();

    // Takes its place on the bus, the object before the name, so that nobody finds a name without
    // an object. False where there is no bus, or another process has the name; the program then
    // runs without.
    bool registerOnSessionBus();

    bool event(QEvent* event) override;

 public slots:
    // The names and signatures are those of the interface.
    // NOLINTBEGIN(readability-identifier-naming)
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& action, const QVariantList& parameter,
                        const QVariantMap& platformData);
    // NOLINTEND(readability-identifier-naming)

 signals:
    // The token may be empty.
    void activationRequested(const QString& activationToken);
    void actionRequested(ApplicationAction action, const QString& activationToken);

 private:
    CallGate gate_;
};

}  // namespace hearthmark::platform
