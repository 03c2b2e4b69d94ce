// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusMessage>
#include <QList>
#include <QString>
#include <QTimer>
#include <QVariantMap>
#include <deque>
#include <functional>
#include <memory>

#include "platform/session/application_object.h"
#include "platform/session/call_rate.h"
#include "platform/session/focus_introspection.h"
#include "services/ports/focus_control.h"

namespace hearthmark::platform {

// A task on the bus, in the order of its fields.
struct BusTask {
    QString id;
    QString name;
    bool isDone = false;
};

// The interface org.hearthmark.Focus of the application object, as
// packaging/org.hearthmark.Focus.xml describes it. Main thread.
class FocusInterface final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.hearthmark.Focus")
    Q_CLASSINFO("D-Bus Introspection", HEARTHMARK_FOCUS_INTROSPECTION)
    Q_PROPERTY(QString TaskId READ taskId)
    Q_PROPERTY(QString TaskName READ taskName)
    Q_PROPERTY(QString IntervalId READ intervalId)
    Q_PROPERTY(double Start READ start)
    Q_PROPERTY(double SpentBefore READ spentBefore)
    Q_PROPERTY(double Length READ length)

 public:
    // The application object owns it, and is not registered yet.
    explicit FocusInterface(ApplicationObject& applicationObject);

    // Called once, after the launch and before the event loop runs, which answers what came before.
    // When the service goes, nothing runs.
    void serve(const std::shared_ptr<services::FocusControl>& focus);

    QString taskId() const { return value("TaskId").toString(); }
    QString taskName() const { return value("TaskName").toString(); }
    QString intervalId() const { return value("IntervalId").toString(); }
    double start() const { return value("Start").toDouble(); }
    double spentBefore() const { return value("SpentBefore").toDouble(); }
    double length() const { return value("Length").toDouble(); }

 public slots:
    // The names and signatures are those of the interface, with the call behind its arguments. All
    // are answered later, and what they return is not sent.
    // NOLINTBEGIN(readability-identifier-naming)
    QString StartFocus(const QString& taskId, double length, const QDBusMessage& call);
    QString Finish(const QDBusMessage& call);
    double Extend(double seconds, const QDBusMessage& call);
    QString AddTask(const QString& name, const QDBusMessage& call);
    QString AddNote(const QString& taskId, const QString& text, const QDBusMessage& call);
    QList<hearthmark::platform::BusTask> FindTasks(const QString& words, const QDBusMessage& call);

 signals:
    void Started(const QString& taskId, const QString& taskName, const QString& intervalId,
                 double length);
    void Finished(const QString& taskId, const QString& taskName, const QString& intervalId,
                  double spent);
    // NOLINTEND(readability-identifier-naming)

 private:
    QVariant value(const char* property) const { return values_.value(QLatin1String(property)); }
    void tellChanges();
    // Asks when it is its turn; one call a turn of the event loop, so that many at once, each of
    // which may be a save, do not keep the window from its own events.
    template <class Ask>
    void answer(const QDBusMessage& call, const Ask& ask);
    void answerNext();

    std::weak_ptr<services::FocusControl> focus_;
    CallRate rate_;
    // In the order in which they came: no more than the rate lets through at once.
    std::deque<std::function<void()>> waiting_;
    QTimer turn_;
    // As told last.
    QVariantMap values_;
};

}  // namespace hearthmark::platform
