// SPDX-License-Identifier: MIT
#include "platform/updates/package_handover.h"

#include <unistd.h>

#include <QProcess>
#include <QUrl>
#include <chrono>
#include <utility>

#include "platform/session/unblocked_signals.h"

namespace hearthmark::platform {

namespace {

// An opener that has not given up by then has started the installer and waits for its end.
constexpr std::chrono::seconds kPatience{5};

// Fails where nothing takes a package: where no program is known for it the opener must not be
// asked, since it would end with a browser. Desktops and installers name the type in three ways.
// Where nobody can be asked about programs, the opener's own answer has to do.
constexpr auto kOpen = R"sh(
if command -v xdg-mime; then
    takers="$(for type in vnd.debian.binary-package x-debian-package x-deb; do
        xdg-mime query default "application/$type"
    done)"
    [ -n "$takers" ] || exit 1
fi
command -v xdg-open && exec xdg-open "$1"
exec gio open "$1"
)sh";

}  // namespace

PackageHandover::PackageHandover(const QString& path, OnAnswer onAnswer)
    : onAnswer_(std::move(onAnswer)) {
    // Deletes itself at its end: whoever deletes it before that kills it.
    auto* opener = new QProcess;
    // It does not end with the terminal that this program was started from.
    opener->setChildProcessModifier([] { setsid(); });
    opener->setStandardInputFile(QProcess::nullDevice());
    opener->setStandardOutputFile(QProcess::nullDevice());
    opener->setStandardErrorFile(QProcess::nullDevice());
    const auto isDone = [this](int status, QProcess::ExitStatus how) {
        answer(how == QProcess::NormalExit && status == 0);
    };
    QObject::connect(opener, &QProcess::finished, &listener_, isDone);
    QObject::connect(opener, &QProcess::finished, opener, &QObject::deleteLater);
    QObject::connect(
        opener, &QProcess::errorOccurred, &listener_, [this] { answer(false); },
        Qt::QueuedConnection);
    QObject::connect(&patience_, &QTimer::timeout, &listener_, [this] { answer(true); });
    patience_.start(kPatience);
    const UnblockedSignals unblocked;
    opener->start(QStringLiteral("/bin/sh"),
                  {QStringLiteral("-c"), QString::fromLatin1(kOpen), QStringLiteral("sh"),
                   QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)});
}

void PackageHandover::answer(bool isTaken) {
    patience_.stop();
    // By a handle of its own, since it may destroy this.
    if (const OnAnswer onAnswer = std::exchange(onAnswer_, nullptr)) {
        onAnswer(isTaken);
    }
}

}  // namespace hearthmark::platform
