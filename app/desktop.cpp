// SPDX-License-Identifier: MIT
#include "app/desktop.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QInputMethod>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <utility>

#include "platform/desktop/portal_file_chooser.h"
#include "platform/desktop/program_windows.h"
#include "platform/desktop/system_clipboard.h"
#include "platform/desktop/time_keeping_provider.h"
#include "platform/notifications/completion_sound.h"
#include "platform/notifications/desktop_quiet.h"
#include "platform/session/autostart_entry.h"
#include "platform/session/logind_sleep_monitor.h"
#include "platform/session/startup_sequence.h"
#include "platform/updates/open_with_desktop.h"
#include "store/persistent_container_factory.h"
#include "ui/window/window_icon.h"

namespace hearthmark::app {

namespace {

using namespace std::chrono_literals;

// Until it is asked again whether a panel shows the item.
constexpr auto kLook = 1s;

}  // namespace

Desktop::Desktop(const std::shared_ptr<const store::StoreBackups>& backups,
                 platform::AppcastUpdater::Configuration updates,
                 std::shared_ptr<const base::Clock> clock, services::UptimeReader uptime,
                 TasksApp::FirstWindow firstWindow, const base::FatalErrorHandler& fatal)
    : unseenFinishes_(std::make_shared<services::UnseenFinishes>()),
      updater_(std::make_shared<platform::AppcastUpdater>(std::move(updates))),
      statusBar_(std::make_shared<platform::SystemStatusBar>(platform::SystemStatusBar::Handlers{
          .addTask = [this] { tasksApp_.addTask({}); },
          .show = [this] { tasksApp_.activate({}); },
          .checkForUpdates = [this] { tasksApp_.checkForUpdates(); },
          .quit = &QCoreApplication::quit,
          .showMenu = [this](const auto& lines,
                             const QPoint& place) { showStatusMenu(lines, place); }})),
      notificationCenter_(std::make_shared<platform::DesktopNotificationCenter>(
          platform::DesktopNotificationCenter::Handlers{
              .activated =
                  [this](const std::optional<base::Uuid>& taskId, const std::string& token) {
                      tasksApp_.showTask(taskId, token);
                      platform::endStartupSequence(token);
                  },
              .untaken =
                  [this](const services::NotificationContent& content) {
                      auto finishes = unseenFinishes_->value();
                      finishes.push_back(content);
                      unseenFinishes_->setValue(std::move(finishes));
                  },
              .playSound =
                  [this] {
                      platform::askWhetherSoundsAreOn(this, [](bool areOn) {
                          if (areOn) {
                              platform::playCompletionSound();
                          }
                      });
                  },
              .icon = &ui::programPicture})),
      dailyBackups_(std::make_shared<services::DailyBackupService>(
          backups, std::make_shared<platform::TimeKeepingProvider>(), notificationCenter_)),
      appearance_(std::make_shared<services::AppearancePreference>()),
      workerThread_(std::make_shared<platform::WorkerThread>()),
      desktopAppearance_(appearance_),
      desktopSession_(&QCoreApplication::quit),
      tasksApp_(environment(backups, std::move(clock), std::move(uptime), firstWindow, fatal)),
      unseenFinishesSubscription_(unseenFinishes_->subscribeDidChange(
          [this] { statusBar_->setNeedsAttention(!unseenFinishes_->value().empty()); })) {
    const auto showCanCheck = [this] {
        statusBar_->setCanCheckForUpdates(updater_->canCheckForUpdates().value());
    };
    canCheckForUpdatesSubscription_ =
        updater_->canCheckForUpdates().subscribeDidChange(showCanCheck);
    showCanCheck();
    connect(qGuiApp, &QCoreApplication::aboutToQuit, this, &Desktop::terminate);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
        if (window != nullptr) {
            statusBar_->setNeedsAttention(false);  // the window says the same
        }
    });
}

TasksApp::Environment Desktop::environment(
    const std::shared_ptr<const store::StoreBackups>& backups,
    std::shared_ptr<const base::Clock> clock, services::UptimeReader uptime,
    TasksApp::FirstWindow firstWindow, const base::FatalErrorHandler& fatal) {
    const QString storeFolder = QString::fromStdString(backups->storeDirectory().string());
    return {
        .firstWindow = firstWindow,
        .persistentContainerFactory = std::make_unique<store::PersistentContainerFactory>(
            backups, fatal,
            [this](const store::StoreNotice& notice) { dailyBackups_->tell(notice); }),
        .timeKeepingProvider = std::make_shared<platform::TimeKeepingProvider>(),
        .clock = std::move(clock),
        .sleepMonitor = std::make_shared<platform::LogindSleepMonitor>(&QCoreApplication::quit),
        .uptime = std::move(uptime),
        .notificationCenter = notificationCenter_,
        .statusBarPorts = {.statusBar = statusBar_,
                           .applicationWindows = std::make_shared<platform::ProgramWindows>(
                               [this] { tasksApp_.makeWindow(); })},
        .homeViewPorts = {.clipboard = std::make_shared<platform::SystemClipboard>(),
                          .updater = updater_,
                          .startAtLogin = std::make_shared<platform::AutostartEntry>(),
                          .unseenFinishes = unseenFinishes_,
                          .appearance = appearance_,
                          .calendar = std::make_shared<base::LocalCalendar>(),
                          .backups = backups,
                          .files = {.fileChooser = std::make_shared<platform::PortalFileChooser>(),
                                    .backgroundWork = workerThread_,
                                    .home = QDir::homePath().toStdString()}},
        .program = {.version = QCoreApplication::applicationVersion(),
                    .storeFolder = storeFolder,
                    .openStoreFolder =
                        [storeFolder] { return platform::openWithDesktop(storeFolder); }},
        .fatal = fatal,
        .quit = &QCoreApplication::quit,
        .restartRestored = [] { QCoreApplication::exit(kRestartRestored); },
        .mayHide = [this] { return statusBar_->isShown() || notificationCenter_->isConnected(); },
        .didHide = [this] { sayOnceThatItKeepsRunning(); }};
}

void Desktop::launch(const std::string& activationToken) {
    tasksApp_.launch(activationToken);
    dailyBackups_->start();
}

void Desktop::displayLost() {
    tasksApp_.abandonWindow();
    terminate();
}

void Desktop::activate(const QString& activationToken) {
    tasksApp_.activate(activationToken.toStdString());
    platform::endStartupSequence(activationToken.toStdString());
}

void Desktop::perform(platform::ApplicationAction action, const QString& activationToken) {
    switch (action) {
        case platform::ApplicationAction::addTask:
            tasksApp_.addTask(activationToken.toStdString());
            break;
        case platform::ApplicationAction::startShortFocus:
            tasksApp_.startShortFocus(activationToken.toStdString());
            break;
        case platform::ApplicationAction::quit:
            QCoreApplication::quit();
            break;
    }
    platform::endStartupSequence(activationToken.toStdString());
}

void Desktop::terminate() {
    QGuiApplication::inputMethod()->commit();  // what is being composed in a note belongs to it
    workerThread_->stop();
    tasksApp_.terminate();
    notificationCenter_->postWaiting();
    workerThread_->stopAndWait();  // last, since a disk may not answer
}

void Desktop::showStatusMenu(const std::vector<platform::StatusMenu::Line>& lines,
                             const QPoint& place) {
    std::vector<ui::StatusMenuWindow::Line> shown;
    shown.reserve(lines.size());
    for (const platform::StatusMenu::Line& line : lines) {
        shown.push_back({.text = line.text.value_or(QString()),
                         .isEnabled = line.isEnabled,
                         .choose = line.choose});
    }
    statusMenu_.show(shown, appearance_->value().isDark, place);
}

void Desktop::sayOnceThatItKeepsRunning() {
    if (statusBar_->isLooking()) {
        QTimer::singleShot(kLook, this, &Desktop::sayOnceThatItKeepsRunning);
    } else if (!statusBar_->isShown() && !std::exchange(hasSaidThatItKeepsRunning_, true)) {
        notificationCenter_->announce(
            {.title = "Hearthmark",
             .body = "Hearthmark keeps running. Start it again to bring its window back.",
             .sound = services::NotificationSound::none,
             .taskId = {}});
    }
}

}  // namespace hearthmark::app
