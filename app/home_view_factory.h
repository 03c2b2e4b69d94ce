// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "base/calendar.h"
#include "base/clock.h"
#include "export/file_transfer_view_model.h"
#include "presentation/note_drafts.h"
#include "presentation/selected_task_id.h"
#include "services/home_view_factory_protocol.h"
#include "services/ports/appearance.h"
#include "services/ports/clipboard.h"
#include "services/ports/start_at_login.h"
#include "services/ports/time_keeping.h"
#include "services/ports/updater.h"
#include "services/unseen_finishes.h"
#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"
#include "store/store_backups.h"
#include "store/undo_history.h"
#include "ui/sheets/about_adapter.h"
#include "ui/window/home_view_subviews_factory.h"
#include "ui/window/main_window_loader.h"

namespace hearthmark::app {

// Makes the main window's content with the view-model factories that it needs, and the one
// selection that its list and its home model share.
class HomeViewFactory final : public services::HomeViewFactoryProtocol {
 public:
    // What of the desktop the views show or use.
    struct Ports {
        std::shared_ptr<services::Clipboard> clipboard;
        std::shared_ptr<services::Updater> updater;
        std::shared_ptr<services::StartAtLogin> startAtLogin;
        std::shared_ptr<services::UnseenFinishes> unseenFinishes;
        std::shared_ptr<services::AppearancePreference> appearance;
        std::shared_ptr<const base::Calendar> calendar;
        std::shared_ptr<const store::StoreBackups> backups;
        exporting::FileTransferViewModel::Ports files;
    };
    // What the views need of the application.
    struct Actions {
        // Answers whether a window may close.
        std::function<bool()> windowShouldClose;
        std::function<void()> quit;
        // Quits, puts the backup that lies ready into the place of the store, and starts anew.
        std::function<void()> restartRestored;
    };

    struct Parts {
        std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService;
        std::shared_ptr<store::UndoHistory> undoHistory;
        std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory;
        std::shared_ptr<const base::Clock> clock;
        std::shared_ptr<presentation::SelectedTaskId> mutableSelectedTaskId;
        std::shared_ptr<presentation::NoteDrafts> drafts;
        std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider;
        std::shared_ptr<ui::MainWindowLoader> windowLoader;
        Ports ports;
        ui::AboutAdapter::Program program;
        Actions actions;
    };

    explicit HomeViewFactory(Parts parts) : parts_(std::move(parts)) {}

    std::unique_ptr<services::HomeViewProtocol> makeHomeView() override;

 private:
    Parts parts_;
};

}  // namespace hearthmark::app
