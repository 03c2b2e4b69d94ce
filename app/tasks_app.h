// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/app_delegate.h"
#include "app/home_view_factory.h"
#include "base/clock.h"
#include "base/fatal_error.h"
#include "base/uuid.h"
#include "livedata/subscription.h"
#include "presentation/note_drafts.h"
#include "presentation/selected_task_id.h"
#include "services/awake_clock.h"
#include "services/focus_service.h"
#include "services/home_view_factory_protocol.h"
#include "services/interval_time_keeper_service.h"
#include "services/local_notification_service.h"
#include "services/ports/sleep_monitor.h"
#include "services/ports/time_keeping.h"
#include "services/ports/uptime.h"
#include "services/ports/user_notification_center.h"
#include "services/running_interval_visiting_service.h"
#include "services/sleep_service.h"
#include "services/status_bar_service.h"
#include "store/data_operations_service_protocol.h"
#include "store/persistent_container_factory.h"

namespace hearthmark::app {

// The composition root: builds every long-lived object once, and decides what happens to running
// intervals at launch and at quit. Everything it builds lives as long as it does.
class TasksApp {
 public:
    enum class FirstWindow { atOnce, whenAskedFor };
    // What differs from start to start, or in a test of the program.
    struct Environment {
        FirstWindow firstWindow;
        std::unique_ptr<store::PersistentContainerFactoryProtocol> persistentContainerFactory;
        std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider;
        std::shared_ptr<const base::Clock> clock;
        std::shared_ptr<services::SleepMonitor> sleepMonitor;
        services::UptimeReader uptime;
        std::shared_ptr<services::UserNotificationCenter> notificationCenter;
        services::StatusBarService::Ports statusBarPorts;
        HomeViewFactory::Ports homeViewPorts;
        ui::AboutAdapter::Program program;
        base::FatalErrorHandler fatal;
        std::function<void()> quit;
        // Quits and starts anew, with the backup that lies ready in the place of the store.
        std::function<void()> restartRestored;
        // Whether the person can see how to bring a hidden window back; else it is minimised.
        std::function<bool()> mayHide;
        // The person has closed the window, and the program lives on.
        std::function<void()> didHide;
    };

    // Opens the store; starts nothing but to load a window that will be shown at once.
    explicit TasksApp(const Environment& environment);
    TasksApp(const TasksApp&) = delete;
    TasksApp& operator=(const TasksApp&) = delete;

    // Runs the launch hook, then shows the main window, unless it is to wait until it is asked for:
    // then it is not even made. The token may be empty. Called once.
    void launch(const std::string& activationToken);

    // What other programs may do. It observes nothing yet.
    const std::shared_ptr<services::FocusService>& focus() const { return focusService_; }

    // Saves the half-written notes and runs the quit hook, at the first call: the display may go
    // away while the program quits. When the event loop has ended, or never will.
    void terminate();
    // The display has gone. The window is not touched from here on.
    void abandonWindow();

    // Makes the main window, if it is not there yet.
    void makeWindow();

    // Each brings the main window to the front, and requires launch() to have been called.
    void activate(const std::string& activationToken);
    void addTask(const std::string& activationToken);
    // On the selected task; where none is selected or no focus can start, none starts.
    void startShortFocus(const std::string& activationToken);
    void showTask(const std::optional<base::Uuid>& taskId, const std::string& activationToken);
    void checkForUpdates();

 private:
    void addLaunchHook();
    void addQuitHook();
    void show(const std::string& activationToken);

    AppDelegate appDelegate_;
    FirstWindow firstWindow_;
    bool isTerminated_ = false;
    std::shared_ptr<services::AwakeClock> clock_;
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<services::IntervalTimeKeeperService> intervalTimeKeeper_;
    std::shared_ptr<services::LocalNotificationService> localNotificationService_;
    std::shared_ptr<presentation::NoteDrafts> drafts_;
    std::shared_ptr<HomeViewFactory> homeViewFactory_;
    std::shared_ptr<services::StatusBarService> statusBarService_;
    std::shared_ptr<services::FocusService> focusService_;
    std::shared_ptr<services::RunningIntervalVisitingService> runningIntervalVisitingService_;
    std::shared_ptr<services::SleepService> sleepService_;
    std::shared_ptr<services::Updater> updaterController_;
    std::shared_ptr<presentation::SelectedTaskId> selectedTaskId_;
    // The one window; made when it is first shown.
    std::unique_ptr<services::HomeViewProtocol> homeView_;
    livedata::Subscription unseenFinishesSubscription_;
};

}  // namespace hearthmark::app
