// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <memory>
#include <vector>

#include "app/tasks_app.h"
#include "base/clock.h"
#include "base/fatal_error.h"
#include "livedata/subscription.h"
#include "platform/desktop/desktop_appearance.h"
#include "platform/desktop/worker_thread.h"
#include "platform/notifications/desktop_notification_center.h"
#include "platform/session/application_object.h"
#include "platform/session/desktop_session.h"
#include "platform/status_item/system_status_bar.h"
#include "platform/updates/appcast_updater.h"
#include "services/daily_backup_service.h"
#include "services/ports/appearance.h"
#include "services/unseen_finishes.h"
#include "store/store_backups.h"
#include "ui/window/status_menu_window.h"

namespace hearthmark::app {

// The program on the Linux desktop: makes the adapters, and connects what they hear with the
// application. Main thread; requires a QGuiApplication that outlives it.
class Desktop final : public QObject {
    Q_OBJECT

 public:
    // What the event loop answers when the program is to begin anew, with the backup that lies
    // ready in the place of its store.
    static constexpr int kRestartRestored = 3;

    Desktop(const std::shared_ptr<const store::StoreBackups>& backups,
            platform::AppcastUpdater::Configuration updates,
            std::shared_ptr<const base::Clock> clock, services::UptimeReader uptime,
            TasksApp::FirstWindow firstWindow, const base::FatalErrorHandler& fatal);

    // Called once. The token may be empty.
    void launch(const std::string& activationToken);
    // What other programs may do.
    const std::shared_ptr<services::FocusService>& focus() const { return tasksApp_.focus(); }
    // Pauses what runs, when the process ends without its event loop since the display has gone.
    // Requires launch() to have been called.
    void displayLost();
    // Brings the window to the front. Requires launch() to have been called.
    void activate(const QString& activationToken);
    // As the person chose from the desktop entry. Requires the same.
    void perform(platform::ApplicationAction action, const QString& activationToken);

 private:
    TasksApp::Environment environment(const std::shared_ptr<const store::StoreBackups>& backups,
                                      std::shared_ptr<const base::Clock> clock,
                                      services::UptimeReader uptime,
                                      TasksApp::FirstWindow firstWindow,
                                      const base::FatalErrorHandler& fatal);
    void terminate();
    void showStatusMenu(const std::vector<platform::StatusMenu::Line>& lines, const QPoint& place);
    void sayOnceThatItKeepsRunning();

    std::shared_ptr<services::UnseenFinishes> unseenFinishes_;
    std::shared_ptr<platform::AppcastUpdater> updater_;
    std::shared_ptr<platform::SystemStatusBar> statusBar_;
    std::shared_ptr<platform::DesktopNotificationCenter> notificationCenter_;
    std::shared_ptr<services::DailyBackupService> dailyBackups_;
    std::shared_ptr<services::AppearancePreference> appearance_;
    std::shared_ptr<platform::WorkerThread> workerThread_;
    platform::DesktopAppearance desktopAppearance_;
    platform::DesktopSession desktopSession_;
    TasksApp tasksApp_;
    ui::StatusMenuWindow statusMenu_;
    bool hasSaidThatItKeepsRunning_ = false;
    livedata::Subscription unseenFinishesSubscription_;
    livedata::Subscription canCheckForUpdatesSubscription_;
};

}  // namespace hearthmark::app
