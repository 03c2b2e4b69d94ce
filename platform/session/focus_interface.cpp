// SPDX-License-Identifier: MIT
#include "platform/session/focus_interface.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMetaType>
#include <QLatin1String>
#include <QStringList>
#include <algorithm>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "platform/desktop/dbus_structure.h"

namespace hearthmark::platform {

namespace {

using services::FocusControl;
using services::FocusRefusal;

constexpr auto kInterface = "org.hearthmark.Focus";
// Enough for a script, and half of what there is time for with ten years of tasks and a slow disk.
constexpr CallLimit::Bounds kOfSender{.atOnce = 20, .perSecond = 5};
constexpr CallLimit::Bounds kOfAll{.atOnce = 40, .perSecond = 10};

// No text on the bus holds a NUL, at which it would end.
QString shown(const std::string& text) {
    return QString::fromStdString(text).replace(QChar::Null, QChar::ReplacementCharacter);
}

QString shown(const base::Uuid& id) {
    return QString::fromStdString(id.text());
}

double shown(base::Seconds seconds) {
    return seconds.count();
}

QList<BusTask> shown(const std::vector<services::FoundTask>& tasks) {
    QList<BusTask> all;
    all.reserve(static_cast<qsizetype>(tasks.size()));
    for (const services::FoundTask& task : tasks) {
        all.append({shown(task.id), shown(task.name), task.isDone});
    }
    return all;
}

// What is too long stays so, whatever white space is in it, and is not looked at for as long as it
// is.
std::string given(const QString& text) {
    constexpr auto kMost = static_cast<qsizetype>(FocusControl::kLongestNote);
    return (text.size() > kMost ? text.left(kMost) + QChar(u'…') : text).toStdString();
}

QVariantMap valuesOf(const std::optional<services::RunningFocus>& running) {
    const base::Seconds start =
        running ? running->start.sinceReferenceDate() + base::kUnixTimeOfReferenceDate
                : base::Seconds(0);
    return {{QStringLiteral("TaskId"), running ? shown(running->taskId) : QString()},
            {QStringLiteral("TaskName"), running ? shown(running->taskName) : QString()},
            {QStringLiteral("IntervalId"), running ? shown(running->intervalId) : QString()},
            {QStringLiteral("Start"), shown(start)},
            {QStringLiteral("SpentBefore"), running ? shown(running->spentBefore) : 0.0},
            {QStringLiteral("Length"), running ? shown(running->length) : 0.0}};
}

QLatin1String errorName(FocusRefusal::Reason reason) {
    switch (reason) {
        case FocusRefusal::Reason::focusRunning:
            return QLatin1String("FocusRunning");
        case FocusRefusal::Reason::nothingRuns:
            return QLatin1String("NothingRuns");
        case FocusRefusal::Reason::noSuchTask:
            return QLatin1String("NoSuchTask");
        case FocusRefusal::Reason::invalidArgument:
            return QLatin1String("InvalidArgument");
        case FocusRefusal::Reason::tooManyCalls:
            return QLatin1String("TooManyCalls");
    }
    return {};
}

void send(const QDBusMessage& call, const QDBusMessage& reply) {
    if (call.isReplyRequired()) {
        QDBusConnection::sessionBus().send(reply);
    }
}

void sendError(const QDBusMessage& call, const QString& name, const QString& text) {
    send(call, call.createErrorReply(name, text));
}

void refuse(const QDBusMessage& call, const FocusRefusal& refusal) {
    sendError(call,
              QLatin1String(kInterface) + QLatin1String(".Error.") + errorName(refusal.reason),
              QString::fromStdString(refusal.text));
}

}  // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const BusTask& task) {
    return writeStructure(argument, task.id, task.name, task.isDone);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusTask& task) {
    return readStructure(argument, task.id, task.name, task.isDone);
}

FocusInterface::FocusInterface(ApplicationObject& applicationObject)
    : QDBusAbstractAdaptor(&applicationObject),
      rate_(kOfSender, kOfAll, steadyNow()),
      values_(valuesOf({})) {
    turn_.setSingleShot(true);
    turn_.setInterval(0);
    connect(&turn_, &QTimer::timeout, this, &FocusInterface::answerNext);
    qDBusRegisterMetaType<BusTask>();
    qDBusRegisterMetaType<QList<BusTask>>();
}

void FocusInterface::serve(const std::shared_ptr<FocusControl>& focus) {
    focus_ = focus;
    focus->startObserving({.changed = [this] { tellChanges(); },
                           .started =
                               [this](const services::RunningFocus& started) {
                                   emit Started(shown(started.taskId), shown(started.taskName),
                                                shown(started.intervalId), shown(started.length));
                               },
                           .finished =
                               [this](const services::FinishedFocus& finished) {
                                   emit Finished(shown(finished.taskId), shown(finished.taskName),
                                                 shown(finished.intervalId), shown(finished.spent));
                               }});
    values_ = valuesOf(focus->running());
}

void FocusInterface::tellChanges() {
    const auto focus = focus_.lock();
    const QVariantMap before = std::exchange(values_, valuesOf(focus->running()));
    QVariantMap changed;
    for (auto value = values_.cbegin(); value != values_.cend(); ++value) {
        if (before.value(value.key()) != value.value()) {
            changed.insert(value.key(), value.value());
        }
    }
    QDBusMessage signal = QDBusMessage::createSignal(
        kApplicationObjectPath, QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("PropertiesChanged"));
    signal << QLatin1String(kInterface) << changed << QStringList();
    QDBusConnection::sessionBus().send(signal);
}

template <class Ask>
void FocusInterface::answer(const QDBusMessage& call, const Ask& ask) {
    call.setDelayedReply(true);
    if (!rate_.admits(call.service().toStdString(), steadyNow())) {
        refuse(call, {FocusRefusal::Reason::tooManyCalls,
                      "Too many calls came at once. Wait a moment and try again."});
        return;
    }
    waiting_.push_back([this, call, ask] {
        const auto focus = focus_.lock();
        if (focus == nullptr) {
            sendError(call, QDBusError::errorString(QDBusError::Failed),
                      QStringLiteral("Hearthmark is ending."));
            return;
        }
        const auto answer = ask(*focus);
        if (const auto* const refusal = std::get_if<FocusRefusal>(&answer)) {
            refuse(call, *refusal);
        } else {
            send(call, call.createReply(QVariant::fromValue(shown(std::get<0>(answer)))));
        }
    });
    turn_.start();
}

void FocusInterface::answerNext() {
    const auto next = std::move(waiting_.front());
    waiting_.pop_front();
    if (!waiting_.empty()) {
        turn_.start();
    }
    next();
}

QString FocusInterface::StartFocus(const QString& taskId, double length, const QDBusMessage& call) {
    answer(call, [task = given(taskId), length](FocusControl& focus) {
        return focus.start(task, base::Seconds(length));
    });
    return {};
}

QString FocusInterface::Finish(const QDBusMessage& call) {
    // What takes the call alone is called by the toolkit whatever the arguments are.
    if (!call.arguments().isEmpty()) {
        call.setDelayedReply(true);
        sendError(call, QDBusError::errorString(QDBusError::InvalidArgs),
                  QStringLiteral("Finish takes no arguments."));
        return {};
    }
    answer(call, [](FocusControl& focus) { return focus.finish(); });
    return {};
}

double FocusInterface::Extend(double seconds, const QDBusMessage& call) {
    answer(call, [seconds](FocusControl& focus) { return focus.extend(base::Seconds(seconds)); });
    return {};
}

QString FocusInterface::AddTask(const QString& name, const QDBusMessage& call) {
    answer(call, [name = given(name)](FocusControl& focus) { return focus.addTask(name); });
    return {};
}

QString FocusInterface::AddNote(const QString& taskId, const QString& text,
                                const QDBusMessage& call) {
    answer(call, [task = given(taskId), text = given(text)](FocusControl& focus) {
        return focus.addNote(task, text);
    });
    return {};
}

QList<BusTask> FocusInterface::FindTasks(const QString& words, const QDBusMessage& call) {
    answer(call, [words = given(words)](FocusControl& focus) { return focus.findTasks(words); });
    return {};
}

}  // namespace hearthmark::platform
