// SPDX-License-Identifier: MIT
#include "platform/desktop/portal_file_chooser.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QList>
#include <QTimer>
#include <QWindow>
#include <utility>

#include "platform/desktop/dbus_answer.h"
#include "platform/desktop/dbus_structure.h"

namespace hearthmark::platform {

// As the portal has them: the kind of a pattern (0 for one of a name), and the pattern.
struct FilePattern {
    uint kind = 0;
    QString pattern;
};
struct FileFilter {
    QString name;
    QList<FilePattern> patterns;
};

QDBusArgument& operator<<(QDBusArgument& argument, const FilePattern& pattern) {
    return writeStructure(argument, pattern.kind, pattern.pattern);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, FilePattern& pattern) {
    return readStructure(argument, pattern.kind, pattern.pattern);
}

QDBusArgument& operator<<(QDBusArgument& argument, const FileFilter& filter) {
    return writeStructure(argument, filter.name, filter.patterns);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, FileFilter& filter) {
    return readStructure(argument, filter.name, filter.patterns);
}

namespace {

using services::FileChoice;
using services::FileKind;

constexpr auto kService = "org.freedesktop.portal.Desktop";
constexpr auto kPath = "/org/freedesktop/portal/desktop";
constexpr auto kRequest = "org.freedesktop.portal.Request";
// For the question to be taken, not to be answered; the portal may have to be started.
constexpr int kTakenWithinMilliseconds = 5000;
constexpr uint kChosen = 0;
constexpr uint kCancelled = 1;

FileFilter filterOf(FileKind kind) {
    switch (kind) {
        case FileKind::everything:
            return {PortalFileChooser::tr("Everything (JSON)"), {{0, "*.json"}}};
        case FileKind::table:
            return {PortalFileChooser::tr("Table (CSV)"), {{0, "*.csv"}}};
        case FileKind::calendar:
            return {PortalFileChooser::tr("Calendar (iCalendar)"), {{0, "*.ics"}}};
    }
    return {};
}

// As the portal names it; nothing where the window system has no such names.
QString focusedWindow() {
    const QWindow* const window = QGuiApplication::focusWindow();
    return window != nullptr && QGuiApplication::platformName() == QLatin1String("xcb")
               ? QStringLiteral("x11:%1").arg(window->winId(), 0, 16)
               : QString();
}

// Empty where it is none of this machine. Of bytes, since a name need not be UTF-8.
std::filesystem::path fileOf(const QString& uri) {
    constexpr QLatin1String kScheme("file://");
    const qsizetype path = uri.indexOf(QLatin1Char('/'), kScheme.size());
    const QStringView host = QStringView(uri).mid(kScheme.size(), path - kScheme.size());
    if (!uri.startsWith(kScheme) || path < 0 ||
        !(host.isEmpty() || host == QLatin1String("localhost"))) {
        return {};
    }
    return QByteArray::fromPercentEncoding(uri.mid(path).toUtf8()).toStdString();
}

}  // namespace

void PortalFileChooser::chooseFileToWrite(const std::string& title,
                                          const std::string& suggestedName, FileKind kind,
                                          Answer answer) {
    ask(QStringLiteral("SaveFile"), title,
        {{QStringLiteral("current_name"), QString::fromStdString(suggestedName)}}, kind,
        std::move(answer));
}

void PortalFileChooser::chooseFileToRead(const std::string& title, FileKind kind, Answer answer) {
    ask(QStringLiteral("OpenFile"), title, {}, kind, std::move(answer));
}

void PortalFileChooser::ask(const QString& method, const std::string& title, QVariantMap options,
                            FileKind kind, Answer answer) {
    static const int kFilters [[maybe_unused]] = [] {
        qDBusRegisterMetaType<FilePattern>();
        qDBusRegisterMetaType<QList<FilePattern>>();
        qDBusRegisterMetaType<FileFilter>();
        return qDBusRegisterMetaType<QList<FileFilter>>().id();
    }();
    close();
    answer_ = std::move(answer);
    auto bus = QDBusConnection::sessionBus();
    const QString token = QStringLiteral("hearthmark%1").arg(++questions_);
    request_ = QStringLiteral("%1/request/%2/%3")
                   .arg(kPath, bus.baseService().mid(1).replace('.', '_'), token);
    const auto none = [this, asked = request_] {
        if (request_ == asked) {
            close();
            std::exchange(answer_, nullptr)({.outcome = FileChoice::Outcome::noDialog, .file = {}});
        }
    };
    // Before it is asked, so that no answer comes too early.
    if (!bus.connect(kService, request_, kRequest, QStringLiteral("Response"), this,
                     SLOT(takeResponse(QDBusMessage)))) {
        QTimer::singleShot(0, this, none);  // as where there is no bus
        return;
    }
    options.insert(QStringLiteral("handle_token"), token);
    options.insert(QStringLiteral("filters"),
                   QVariant::fromValue(QList<FileFilter>{filterOf(kind)}));
    auto call = QDBusMessage::createMethodCall(
        kService, kPath, QStringLiteral("org.freedesktop.portal.FileChooser"), method);
    call.setArguments({focusedWindow(), QString::fromStdString(title), options});
    using Reply = QDBusPendingReply<QDBusObjectPath>;
    whenAnswered<Reply>(bus.asyncCall(call, kTakenWithinMilliseconds), this,
                        [none](const Reply& reply) {
                            if (reply.isError()) {
                                none();
                            }
                        });
}

void PortalFileChooser::takeResponse(const QDBusMessage& response) {
    const QList<QVariant> arguments = response.arguments();
    if (response.path() != request_ || arguments.size() != 2) {
        return;
    }
    forget();
    const uint code = arguments[0].toUInt();
    const auto results = qdbus_cast<QVariantMap>(arguments[1]);
    const auto uris = qdbus_cast<QStringList>(results.value(QStringLiteral("uris")));
    FileChoice choice{.outcome = FileChoice::Outcome::noDialog, .file = {}};
    if (code == kCancelled) {
        choice.outcome = FileChoice::Outcome::cancelled;
    } else if (code == kChosen && !uris.isEmpty()) {
        choice.file = fileOf(uris.constFirst());
    }
    if (!choice.file.empty()) {
        choice.outcome = FileChoice::Outcome::chosen;
    }
    std::exchange(answer_, nullptr)(choice);  // which may ask anew
}

// Its dialog, where one stands open or is still to come, too: nobody waits for it any more.
void PortalFileChooser::close() {
    if (request_.isEmpty()) {
        return;
    }
    auto call =
        QDBusMessage::createMethodCall(kService, request_, kRequest, QStringLiteral("Close"));
    call.setAutoStartService(false);
    QDBusConnection::sessionBus().call(call, QDBus::NoBlock);
    forget();
}

void PortalFileChooser::forget() {
    QDBusConnection::sessionBus().disconnect(kService, request_, kRequest,
                                             QStringLiteral("Response"), this,
                                             SLOT(takeResponse(QDBusMessage)));
    request_.clear();
}

}  // namespace hearthmark::platform
