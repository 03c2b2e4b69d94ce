// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <filesystem>
#include <memory>

#include "app/tasks_app.h"
#include "base/clock.h"
#include "base/fatal_error.h"
#include "livedata/subscription.h"
#include "platform/appcast_updater.h"
#include "platform/desktop_appearance.h"
#include "platform/desktop_notification_center.h"
#include "platform/system_status_bar.h"
#include "services/appearance.h"
#include "services/unseen_finishes.h"

namespace hearthmark::app {

// The program on the Linux desktop: makes the adapters, and connects what they hear with the
// application. Main thread; requires a QGuiApplication that outlives it.
class Desktop final : public QObject {
    Q_OBJECT

 public:
    Desktop(const std::filesystem::path& storeDirectory,
            platform::AppcastUpdater::Configuration updates,
            std::shared_ptr<const base::Clock> clock, const base::FatalErrorHandler& fatal);

    // Called once.
    void launch();
    // Brings the window to the front. Requires launch() to have been called.
    void activate(const QString& activationToken);

 private:
    TasksApp::Environment environment(const std::filesystem::path& storeDirectory,
                                      std::shared_ptr<const base::Clock> clock,
                                      const base::FatalErrorHandler& fatal);
    void terminate();
    void sayOnceThatItKeepsRunning();

    std::shared_ptr<services::UnseenFinishes> unseenFinishes_;
    std::shared_ptr<platform::AppcastUpdater> updater_;
    std::shared_ptr<platform::SystemStatusBar> statusBar_;
    std::shared_ptr<platform::DesktopNotificationCenter> notificationCenter_;
    std::shared_ptr<services::AppearancePreference> appearance_;
    platform::DesktopAppearance desktopAppearance_;
    TasksApp tasksApp_;
    bool hasSaidThatItKeepsRunning_ = false;
    livedata::Subscription unseenFinishesSubscription_;
    livedata::Subscription canCheckForUpdatesSubscription_;
};

}  // namespace hearthmark::app
