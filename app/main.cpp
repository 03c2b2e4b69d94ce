// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QGuiApplication>
#include <QLocale>
#include <QQuickWindow>
#include <QStandardPaths>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>

#include "app/desktop.h"
#include "app/program_clock.h"
#include "base/fatal_error.h"
#include "objectstore/store_error.h"
#include "platform/appcast_updater.h"
#include "platform/application_object.h"
#include "platform/fatal_notification.h"
#include "platform/instance_lock.h"
#include "platform/running_instance.h"
#include "platform/termination_signals.h"
#include "store/persistent_container_factory.h"
#include "ui/accessibility.h"

using namespace hearthmark;

namespace {

int showRunningInstance(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (platform::activateRunningInstance()) {
        return EXIT_SUCCESS;
    }
    std::cerr << "Hearthmark is already running." << std::endl;
    return EXIT_FAILURE;
}

platform::AppcastUpdater::Configuration updates() {
    return {.feed = QUrl(QStringLiteral(HEARTHMARK_UPDATE_FEED)),
            .publicKey = HEARTHMARK_UPDATE_PUBLIC_KEY,
            .currentVersion = QCoreApplication::applicationVersion(),
            .directory = QStandardPaths::writableLocation(QStandardPaths::CacheLocation) +
                         QStringLiteral("/updates"),
            .patience = std::chrono::seconds(HEARTHMARK_UPDATE_PATIENCE)};
}

int runApplication(int argc, char** argv, const std::filesystem::path& storeDirectory,
                   const platform::InstanceLock& lock,
                   const platform::TerminationSignals& terminationSignals) {
    // A few words are repainted each second: the software scene graph takes less than half the
    // memory.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication::setApplicationName(QStringLiteral("Hearthmark"));
    QGuiApplication::setApplicationVersion(QStringLiteral(HEARTHMARK_VERSION));
    QGuiApplication::setDesktopFileName(QLatin1String(platform::kApplicationId));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        // X11 first, also on Wayland desktops, all of which offer it.
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
    }
    QGuiApplication application(argc, argv);
    if (QLocale().textDirection() == Qt::RightToLeft) {
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    }
    ui::prepareAccessibility();

    platform::ApplicationObject applicationObject;
    applicationObject.registerOnSessionBus();

    const base::FatalErrorHandler fatal(&platform::notifyOfFatalError);
    if (lock.state() == platform::InstanceLock::State::failed) {
        const std::error_code error = lock.error();
        fatal(store::unresolvedLoadError({error.message() + ": " + storeDirectory.string(),
                                          error.value(), error.value(), "lock"}));
    }
    app::Desktop desktop(storeDirectory, updates(), app::makeProgramClock(), fatal);
    QObject::connect(&applicationObject, &platform::ApplicationObject::activationRequested,
                     &desktop, &app::Desktop::activate);
    desktop.launch();
    const auto signalNotifier = terminationSignals.listen(&QCoreApplication::quit);
    return QGuiApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    const platform::TerminationSignals terminationSignals;
    const std::filesystem::path storeDirectory = store::storeDirectory();
    const platform::InstanceLock lock(storeDirectory);
    if (lock.state() == platform::InstanceLock::State::heldByAnother) {
        return showRunningInstance(argc, argv);
    }
    return runApplication(argc, argv, storeDirectory, lock, terminationSignals);
}
