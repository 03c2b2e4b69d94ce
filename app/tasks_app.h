// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "app/app_delegate.h"
#include "app/home_view_factory.h"
#include "base/clock.h"
#include "base/fatal_error.h"
#include "export/clipboard.h"
#include "services/home_view_factory_protocol.h"
#include "services/interval_time_keeper_service.h"
#include "services/running_interval_visiting_service.h"
#include "services/time_keeping.h"
#include "store/data_operations_service_protocol.h"
#include "store/persistent_container_factory.h"

namespace hearthmark::app {

// The composition root: builds every long-lived object once, and decides what happens to running
// intervals at launch and at quit. Everything it builds lives as long as it does.
class TasksApp {
 public:
    // What differs between the program and a test of it.
    struct Environment {
        std::unique_ptr<store::PersistentContainerFactoryProtocol> persistentContainerFactory;
        HomeViewFactory::TimeKeepingProviderMaker makeTimeKeepingProvider;
        std::shared_ptr<exporting::Clipboard> clipboard;
        std::shared_ptr<const base::Clock> clock;
        base::FatalErrorHandler fatal;
        std::function<void()> quit;
    };

    // Opens the store; starts nothing.
    explicit TasksApp(const Environment& environment);
    TasksApp(const TasksApp&) = delete;
    TasksApp& operator=(const TasksApp&) = delete;

    // Runs the launch hook, then makes the main window and shows it. Called once.
    void launch();

    // Runs the quit hook. Called once, when the event loop has ended.
    void terminate();

    // Brings the main window to the front. Requires launch() to have been called.
    void activate(const std::string& activationToken);

 private:
    AppDelegate appDelegate_;
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<services::IntervalTimeKeeperService> intervalTimeKeeper_;
    std::shared_ptr<HomeViewFactory> homeViewFactory_;
    std::shared_ptr<services::RunningIntervalVisitingService> runningIntervalVisitingService_;
    // The one window; made at launch.
    std::unique_ptr<services::HomeViewProtocol> homeView_;
};

}  // namespace hearthmark::app
