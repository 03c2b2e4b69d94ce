// SPDX-License-Identifier: MIT
#include "app/desktop.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <utility>

#include "platform/completion_sound.h"
#include "platform/logind_sleep_monitor.h"
#include "platform/open_with_desktop.h"
#include "platform/program_windows.h"
#include "platform/system_clipboard.h"
#include "platform/time_keeping_provider.h"
#include "store/persistent_container_factory.h"

namespace hearthmark::app {

namespace {

using namespace std::chrono_literals;

// Until it is asked again whether a panel shows the item.
constexpr auto kLook = 1s;

}  // namespace

Desktop::Desktop(const std::filesystem::path& storeDirectory,
                 platform::AppcastUpdater::Configuration updates,
                 std::shared_ptr<const base::Clock> clock, const base::FatalErrorHandler& fatal)
    : unseenFinishes_(std::make_shared<services::UnseenFinishes>()),
      updater_(std::make_shared<platform::AppcastUpdater>(std::move(updates))),
      statusBar_(std::make_shared<platform::SystemStatusBar>(platform::SystemStatusBar::Handlers{
          .show = [this] { tasksApp_.activate({}); },
          .checkForUpdates = [this] { tasksApp_.checkForUpdates(); },
          .quit = &QCoreApplication::quit})),
      notificationCenter_(std::make_shared<platform::DesktopNotificationCenter>(
          platform::DesktopNotificationCenter::Handlers{
              .activated = [this](const std::optional<base::Uuid>& taskId,
                                  const std::string& token) { tasksApp_.showTask(taskId, token); },
              .untaken =
                  [this](const services::NotificationContent& content) {
                      auto finishes = unseenFinishes_->value();
                      finishes.push_back(content);
                      unseenFinishes_->setValue(std::move(finishes));
                  },
              .playSound = &platform::playCompletionSound})),
      appearance_(std::make_shared<services::AppearancePreference>()),
      desktopAppearance_(appearance_),
      tasksApp_(environment(storeDirectory, std::move(clock), fatal)),
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

TasksApp::Environment Desktop::environment(const std::filesystem::path& storeDirectory,
                                           std::shared_ptr<const base::Clock> clock,
                                           const base::FatalErrorHandler& fatal) {
    const QString storeFolder = QString::fromStdString(storeDirectory.string());
    return {
        .persistentContainerFactory =
            std::make_unique<store::PersistentContainerFactory>(storeDirectory, fatal),
        .makeTimeKeepingProvider = [] { return std::make_shared<platform::TimeKeepingProvider>(); },
        .clock = std::move(clock),
        .sleepMonitor = std::make_shared<platform::LogindSleepMonitor>(),
        .notificationCenter = notificationCenter_,
        .statusBarPorts = {.statusBar = statusBar_,
                           .applicationWindows = std::make_shared<platform::ProgramWindows>()},
        .homeViewPorts = {.clipboard = std::make_shared<platform::SystemClipboard>(),
                          .updater = updater_,
                          .unseenFinishes = unseenFinishes_,
                          .appearance = appearance_,
                          .calendar = std::make_shared<base::LocalCalendar>()},
        .program = {.version = QCoreApplication::applicationVersion(),
                    .storeFolder = storeFolder,
                    .openStoreFolder =
                        [storeFolder] { return platform::openWithDesktop(storeFolder); }},
        .fatal = fatal,
        .quit = &QCoreApplication::quit,
        .didHide = [this] { sayOnceThatItKeepsRunning(); }};
}

void Desktop::launch() {
    tasksApp_.launch();
}

void Desktop::activate(const QString& activationToken) {
    tasksApp_.activate(activationToken.toStdString());
}

void Desktop::terminate() {
    tasksApp_.terminate();
    notificationCenter_->postWaiting();
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
