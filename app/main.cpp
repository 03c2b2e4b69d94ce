// SPDX-License-Identifier: MIT
#include <unistd.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QStandardPaths>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "app/desktop.h"
#include "app/program_clock.h"
#include "app/program_updates.h"
#include "app/toolkit.h"
#include "base/calendar.h"
#include "base/fatal_error.h"
#include "objectstore/store_error.h"
#include "platform/desktop/display.h"
#include "platform/notifications/fatal_notification.h"
#include "platform/session/activation_socket.h"
#include "platform/session/activation_token.h"
#include "platform/session/application_object.h"
#include "platform/session/focus_interface.h"
#include "platform/session/instance_lock.h"
#include "platform/session/running_instance.h"
#include "platform/session/start_by_bus.h"
#include "platform/session/sudden_exit.h"
#include "platform/session/termination_signals.h"
#include "platform/updates/appcast_updater.h"
#include "store/persistent_container_factory.h"
#include "store/store_backups.h"
#include "store/store_fault.h"
#include "ui/window/message_window.h"

using namespace hearthmark;

namespace {

// Absent where the program is to be started; what else may stand there is the toolkit's.
std::optional<std::string_view> answer(int argc, char** argv) {
    for (const std::string_view argument : std::span(argv, static_cast<std::size_t>(argc))) {
        if (argument == "--version") {
            return "Hearthmark " HEARTHMARK_VERSION "\n";
        }
        if (argument == "--help" || argument == "-h") {
            return "Usage: hearthmark [OPTION]\n"
                   "Starts Hearthmark, or brings the window of the running one to the front.\n\n"
                   "  -h, --help   print this text\n"
                   "  --version    print the version\n\n"
                   "Options of the Qt toolkit, such as -platform, are taken as well.\n";
        }
    }
    return std::nullopt;
}

// On standard error, and where a person sees it who has no terminal.
void sayThatItRunsElsewhere(int argc, char** argv,
                            const platform::TerminationSignals& terminationSignals) {
    constexpr auto kMessage =
        "Hearthmark is already running, but does not answer. Wait a moment and start it again. If "
        "that does not help, end the process \"hearthmark\"; no more than the last minute of a "
        "running focus is lost.";
    std::cerr << kMessage << std::endl;
    {
        const QCoreApplication application(argc, argv);
        if (platform::notifyBeforeTheEnd(QObject::tr("Hearthmark cannot start"), kMessage)) {
            return;
        }
    }
    if (platform::hasDisplay()) {
        const app::Toolkit toolkit(argc, argv);
        const auto signalNotifier = terminationSignals.listen(&QCoreApplication::quit);
        ui::showMessageWindow(kMessage);
    }
}

int showRunningInstance(int argc, char** argv, const platform::InstanceLock& lock,
                        const platform::TerminationSignals& terminationSignals) {
    {
        const QCoreApplication application(argc, argv);
        if (platform::activateRunningInstance(lock.name())) {
            return EXIT_SUCCESS;
        }
    }
    sayThatItRunsElsewhere(argc, argv, terminationSignals);
    return EXIT_FAILURE;
}

// On standard error, which is the journal for what the bus has started, and to the person, whose
// desktop may have told the bus too little.
int sayThatThereIsNoDisplay(int argc, char** argv) {
    constexpr auto kMessage =
        "Hearthmark found no display to show its window on. Start it from the desktop. If the "
        "desktop cannot start it, either, this command, run in a terminal of the desktop, tells "
        "the session bus where the display is:\n"
        "dbus-update-activation-environment --systemd DISPLAY XAUTHORITY WAYLAND_DISPLAY";
    std::cerr << kMessage << std::endl;
    const QCoreApplication application(argc, argv);
    platform::notifyBeforeTheEnd(QObject::tr("Hearthmark cannot start"), kMessage);
    return EXIT_FAILURE;
}

platform::AppcastUpdater::Configuration updates() {
    const app::ProgramUpdates updates = app::programUpdates();
    return {.feed = QUrl(QLatin1String(updates.feed)),
            .publicKey = updates.publicKey,
            .currentVersion = QCoreApplication::applicationVersion(),
            .directory = QStandardPaths::writableLocation(QStandardPaths::CacheLocation) +
                         QStringLiteral("/updates"),
            .patience = updates.patience};
}

// What has to be there before the toolkit is, and outlives it.
struct Process {
    const platform::TerminationSignals& terminationSignals;
    const platform::InstanceLock& lock;
    app::TasksApp::FirstWindow firstWindow;
    std::shared_ptr<const base::Clock> clock;
    std::shared_ptr<const store::StoreBackups> backups;
};

int runApplication(int argc, char** argv, const Process& process) {
    const app::Toolkit toolkit(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const std::string activationToken = platform::takeActivationToken();

    platform::ApplicationObject applicationObject;
    auto* const focusInterface = new platform::FocusInterface(applicationObject);
    applicationObject.registerOnSessionBus();

    const base::FatalErrorHandler fatal([](std::string_view message) {
        platform::notifyBeforeTheEnd(QObject::tr("Hearthmark has stopped"), message);
    });
    if (process.lock.state() == platform::InstanceLock::State::failed) {
        const std::filesystem::path& directory = process.backups->storeDirectory();
        const int error = process.lock.error().value();
        fatal(store::loadFailure(objectstore::StoreError::ofCall("lock", directory, error),
                                 directory));
    }
    app::Desktop desktop(process.backups, updates(), process.clock, &app::programUptime,
                         process.firstWindow, fatal);
    const platform::ActivationSocket activationSocket(process.lock.name());
    QObject::connect(&activationSocket, &platform::ActivationSocket::activationRequested, &desktop,
                     &app::Desktop::activate);
    QObject::connect(&applicationObject, &platform::ApplicationObject::activationRequested,
                     &desktop, &app::Desktop::activate);
    QObject::connect(&applicationObject, &platform::ApplicationObject::actionRequested, &desktop,
                     &app::Desktop::perform);
    desktop.launch(activationToken);
    focusInterface->serve(desktop.focus());
    const platform::SuddenExit suddenExit([&desktop] { desktop.displayLost(); });
    const auto signalNotifier = process.terminationSignals.listen(&QCoreApplication::quit);
    return QGuiApplication::exec();
}

// Whatever becomes of the restore, the program goes on, with the store that there is.
int restartRestored(int argc, char** argv, const store::StoreBackups& backups) {
    try {
        backups.completeRestore();
    } catch (const objectstore::StoreError& error) {
        const QCoreApplication application(argc, argv);
        const std::string reason(store::faultOf(error, backups.storeDirectory()).reason);
        const std::string message = reason + (reason.empty() ? "" : " ") + error.what();
        std::cerr << "Hearthmark could not restore the backup: " << message << std::endl;
        platform::notifyBeforeTheEnd(QObject::tr("Hearthmark could not restore the backup"),
                                     message);
    }
    std::error_code error;
    std::string program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) {
        program = argv[0];
    }
    // Where it was upgraded meanwhile, its successor stands there.
    constexpr std::string_view kReplaced = " (deleted)";
    if (program.ends_with(kReplaced)) {
        program.erase(program.size() - kReplaced.size());
    }
    ::execvp(program.c_str(), argv);
    std::cerr << program << ": " << std::generic_category().message(errno) << std::endl;
    return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
    if (const auto text = answer(argc, argv)) {
        std::cout << *text;
        return EXIT_SUCCESS;
    }
    const platform::TerminationSignals terminationSignals;
    const auto firstWindow = platform::takeStartByBus() ? app::TasksApp::FirstWindow::whenAskedFor
                                                        : app::TasksApp::FirstWindow::atOnce;
    const std::filesystem::path storeDirectory = store::storeDirectory();
    const platform::InstanceLock lock(storeDirectory);
    if (lock.state() == platform::InstanceLock::State::heldByAnother) {
        return showRunningInstance(argc, argv, lock, terminationSignals);
    }
    if (!platform::canMakeWindows(std::span(argv, static_cast<std::size_t>(argc)))) {
        return sayThatThereIsNoDisplay(argc, argv);
    }
    const std::shared_ptr<const base::Clock> clock = app::makeProgramClock();
    const auto backups = std::make_shared<const store::StoreBackups>(
        storeDirectory, clock, std::make_shared<base::LocalCalendar>());
    const int result =
        runApplication(argc, argv, {terminationSignals, lock, firstWindow, clock, backups});
    return result == app::Desktop::kRestartRestored ? restartRestored(argc, argv, *backups)
                                                    : result;
}
