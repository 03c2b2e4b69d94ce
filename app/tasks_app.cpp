// SPDX-License-Identifier: MIT
#include "app/tasks_app.h"

#include <optional>

#include "presentation/selected_task_id.h"
#include "store/data_operations_service.h"
#include "store/live_data.h"

namespace hearthmark::app {

TasksApp::TasksApp(const Environment& environment) : appDelegate_([this] { homeView_->hide(); }) {
    const auto container = environment.persistentContainerFactory->makeContainer();
    const auto liveDataFactory = std::make_shared<store::LiveDataProvidingFactory>(container);
    const auto timeKeepingProvider = environment.makeTimeKeepingProvider();
    dataOperationsService_ = std::make_shared<store::DataOperationsService>(
        *liveDataFactory, container, environment.clock, environment.fatal);
    intervalTimeKeeper_ = std::make_shared<services::IntervalTimeKeeperService>(
        dataOperationsService_, timeKeepingProvider);
    homeViewFactory_ = std::make_shared<HomeViewFactory>(
        dataOperationsService_, liveDataFactory, environment.clock,
        std::make_shared<presentation::SelectedTaskId>(std::nullopt),
        environment.makeTimeKeepingProvider, environment.clipboard,
        HomeViewFactory::Actions{
            .windowShouldClose = [this] { return appDelegate_.windowShouldClose(); },
            .quit = environment.quit});
    runningIntervalVisitingService_ = std::make_shared<services::RunningIntervalVisitingService>(
        dataOperationsService_, timeKeepingProvider, environment.clock);

    appDelegate_.onApplicationDidFinishLaunching.emplace_back(
        [operations = dataOperationsService_, weakTimeKeeper = std::weak_ptr(intervalTimeKeeper_),
         weakVisiting = std::weak_ptr(runningIntervalVisitingService_)](const LaunchNotification&) {
            operations->finishIntervalsLeftRunning();
            operations->resumePausedIntervals();
            if (const auto timeKeeper = weakTimeKeeper.lock()) {
                timeKeeper->start();
            }
            if (const auto visiting = weakVisiting.lock()) {
                visiting->start();
            }
        });
    appDelegate_.onApplicationWillTerminate.emplace_back(
        [operations = dataOperationsService_](const TerminationNotification&) {
            operations->pauseRunningIntervals();
        });
}

void TasksApp::launch() {
    appDelegate_.applicationDidFinishLaunching({});
    homeView_ = homeViewFactory_->makeHomeView();
    homeView_->show({});
}

void TasksApp::terminate() {
    appDelegate_.applicationWillTerminate({});
}

void TasksApp::activate(const std::string& activationToken) {
    homeView_->show(activationToken);
}

}  // namespace hearthmark::app
