// SPDX-License-Identifier: MIT
#include "app/tasks_app.h"

#include <utility>

#include "services/awake_time_keeping_provider.h"
#include "services/in_step_time_keeping_provider.h"
#include "store/data_operations_service.h"
#include "store/interval.h"
#include "store/live_data.h"
#include "store/note.h"

namespace hearthmark::app {

TasksApp::TasksApp(const Environment& environment)
    : appDelegate_([this, mayHide = environment.mayHide, didHide = environment.didHide] {
          if (mayHide()) {
              homeView_->hide();
              didHide();
          } else {
              homeView_->minimize();
          }
      }),
      firstWindow_(environment.firstWindow),
      clock_(std::make_shared<services::AwakeClock>(environment.clock)),
      updaterController_(environment.homeViewPorts.updater),
      selectedTaskId_(std::make_shared<presentation::SelectedTaskId>(std::nullopt)) {
    const auto windowLoader = std::make_shared<ui::MainWindowLoader>();
    if (firstWindow_ == FirstWindow::atOnce) {
        windowLoader->begin();
    }
    const auto container = environment.persistentContainerFactory->makeContainer();
    const auto liveDataFactory = std::make_shared<store::LiveDataProvidingFactory>(container);
    dataOperationsService_ = std::make_shared<store::DataOperationsService>(
        *liveDataFactory, container, clock_, environment.fatal);
    sleepService_ = std::make_shared<services::SleepService>(
        dataOperationsService_, environment.sleepMonitor, clock_, environment.uptime);
    const auto timeKeepingProvider = std::make_shared<services::InStepTimeKeepingProvider>(
        std::make_shared<services::AwakeTimeKeepingProvider>(environment.timeKeepingProvider,
                                                             sleepService_));
    intervalTimeKeeper_ = std::make_shared<services::IntervalTimeKeeperService>(
        dataOperationsService_, timeKeepingProvider);
    const auto quickFocus = std::make_shared<services::QuickFocus>(
        dataOperationsService_, *liveDataFactory, clock_,
        [center = environment.notificationCenter] { return center; });
    localNotificationService_ = std::make_shared<services::LocalNotificationService>(
        liveDataFactory, quickFocus, [center = environment.notificationCenter] { return center; },
        environment.fatal);
    drafts_ = std::make_shared<presentation::NoteDrafts>(dataOperationsService_, *liveDataFactory);
    homeViewFactory_ = std::make_shared<HomeViewFactory>(HomeViewFactory::Parts{
        dataOperationsService_, std::make_shared<store::UndoHistory>(dataOperationsService_),
        liveDataFactory, clock_, selectedTaskId_, drafts_, timeKeepingProvider, windowLoader,
        environment.homeViewPorts, environment.program,
        HomeViewFactory::Actions{
            .windowShouldClose = [this] { return appDelegate_.windowShouldClose(); },
            .quit = environment.quit,
            .restartRestored = environment.restartRestored}});
    const auto intervalsProvider = std::make_shared<services::StatusBarService::IntervalsProvider>(
        container, store::Interval::fetchRequest().sortDescriptor);
    intervalsProvider->startObserving();
    statusBarService_ = std::make_shared<services::StatusBarService>(
        homeViewFactory_, intervalsProvider, timeKeepingProvider, clock_,
        std::make_unique<services::StatusMenuService>(quickFocus, *liveDataFactory),
        environment.statusBarPorts);
    focusService_ =
        std::make_shared<services::FocusService>(dataOperationsService_, *liveDataFactory, clock_);
    runningIntervalVisitingService_ = std::make_shared<services::RunningIntervalVisitingService>(
        dataOperationsService_, timeKeepingProvider, clock_);
    addLaunchHook();
    addQuitHook();
    environment.notificationCenter->setDelegate(appDelegate_);
    unseenFinishesSubscription_ = environment.homeViewPorts.unseenFinishes->subscribeDidChange(
        [this, unseen = environment.homeViewPorts.unseenFinishes.get()] {
            if (homeView_ && !unseen->value().empty()) {
                homeView_->requestAttention();
            }
        });
}

void TasksApp::addLaunchHook() {
    appDelegate_.onApplicationDidFinishLaunching.emplace_back(
        [operations = dataOperationsService_, statusBar = statusBarService_, sleep = sleepService_,
         weakTimeKeeper = std::weak_ptr(intervalTimeKeeper_),
         weakNotifications = std::weak_ptr(localNotificationService_),
         weakVisiting = std::weak_ptr(runningIntervalVisitingService_)](const LaunchNotification&) {
            operations->finishIntervalsLeftRunning();
            operations->resumePausedIntervals();
            statusBar->setUp();
            if (const auto timeKeeper = weakTimeKeeper.lock()) {
                timeKeeper->start();
            }
            if (const auto notifications = weakNotifications.lock()) {
                notifications->startObserving();
            }
            if (const auto visiting = weakVisiting.lock()) {
                visiting->start();
            }
            sleep->start();
        });
}

void TasksApp::addQuitHook() {
    appDelegate_.onApplicationWillTerminate.emplace_back(
        [operations = dataOperationsService_,
         sleep = sleepService_](const TerminationNotification&) {
            sleep->mayTick();  // a sleep that no tick has found yet is not counted, either
            operations->pauseRunningIntervals();
        });
}

void TasksApp::launch(const std::string& activationToken) {
    appDelegate_.applicationDidFinishLaunching({});
    if (firstWindow_ == FirstWindow::atOnce) {
        show(activationToken);
    }
}

void TasksApp::terminate() {
    if (!std::exchange(isTerminated_, true)) {
        drafts_->save();
        appDelegate_.applicationWillTerminate({});
    }
}

void TasksApp::abandonWindow() {
    if (homeView_) {
        homeView_->abandon();
    }
}

void TasksApp::makeWindow() {
    if (!homeView_) {
        homeView_ = homeViewFactory_->makeHomeView();
    }
}

void TasksApp::show(const std::string& activationToken) {
    makeWindow();
    homeView_->show(activationToken);
}

void TasksApp::activate(const std::string& activationToken) {
    show(activationToken);
}

void TasksApp::addTask(const std::string& activationToken) {
    show(activationToken);
    homeView_->displayAddSheet();
}

void TasksApp::startShortFocus(const std::string& activationToken) {
    show(activationToken);
    homeView_->startShortFocus();
}

void TasksApp::showTask(const std::optional<base::Uuid>& taskId,
                        const std::string& activationToken) {
    if (taskId) {
        selectedTaskId_->setValue(taskId);
    }
    show(activationToken);
}

void TasksApp::checkForUpdates() {
    show({});
    updaterController_->checkForUpdates();
}

}  // namespace hearthmark::app
