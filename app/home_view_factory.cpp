// SPDX-License-Identifier: MIT
#include "app/home_view_factory.h"

#include <QLocale>
#include <chrono>
#include <utility>

#include "platform/desktop/window_activation.h"
#include "presentation/check_for_updates_view_model.h"
#include "presentation/focus_announcement_view_model.h"
#include "presentation/restore_backup_view_model.h"
#include "presentation/undo_deletion_view_model.h"
#include "presentation/undo_menu_view_model.h"
#include "presentation/view_model_factories.h"
#include "services/in_step_time_keeping_provider.h"
#include "ui/window/home_adapter.h"
#include "ui/window/home_view.h"

namespace hearthmark::app {

std::unique_ptr<services::HomeViewProtocol> HomeViewFactory::makeHomeView() {
    const auto& [service, undoHistory, liveDataFactory, clock, selectedTaskId, drafts,
                 timeKeepingProvider, windowLoader, ports, program, actions] = parts_;
    const presentation::HomeVMFactory homeVMFactory(
        service, std::make_shared<presentation::SelectedTaskIdPublisher>(*selectedTaskId));
    const auto beat = std::make_shared<services::InStepTimeKeepingProvider>(timeKeepingProvider);
    const ui::HomeViewSubviewsFactory subviewsFactory{
        .dataOperationsService = service,
        .liveDataFactory = liveDataFactory,
        .clock = clock,
        .mutableSelectedTaskId = selectedTaskId,
        .drafts = drafts,
        .makeTimeKeepingProvider =
            [beat] { return std::make_shared<services::InStepTimeKeepingProvider>(*beat); },
        .clipboard = ports.clipboard,
        .calendar = ports.calendar,
        // Both count from Monday, and the one says 7 for Sunday, which the other takes for 0.
        .firstDayOfWeek = std::chrono::weekday(static_cast<unsigned>(QLocale().firstDayOfWeek()))};
    const auto focusAnnouncement =
        std::make_shared<presentation::FocusAnnouncementViewModel>(timeKeepingProvider);
    focusAnnouncement->startObserving(*liveDataFactory);
    ui::HomeParts parts{
        .about = std::make_unique<ui::AboutAdapter>(program),
        .appearance = std::make_unique<ui::AppearanceAdapter>(ports.appearance),
        .fileTransfer = std::make_unique<ui::FileTransferAdapter>(
            std::make_shared<exporting::FileTransferViewModel>(
                exporting::FileTransferViewModel::Parts{.dataOperationsService = service,
                                                        .liveDataFactory = liveDataFactory,
                                                        .backups = ports.backups,
                                                        .clock = clock,
                                                        .calendar = ports.calendar,
                                                        .timeKeepingProvider = timeKeepingProvider,
                                                        .ports = ports.files})),
        .focusAnnouncement = std::make_unique<ui::FocusAnnouncementAdapter>(focusAnnouncement),
        .restore = std::make_unique<ui::RestoreAdapter>(
            std::make_shared<presentation::RestoreBackupViewModel>(ports.backups, service, drafts,
                                                                   actions.restartRestored)),
        .startAtLogin = std::make_unique<ui::StartAtLoginAdapter>(ports.startAtLogin),
        .undo =
            std::make_unique<ui::UndoAdapter>(std::make_shared<presentation::UndoDeletionViewModel>(
                service, undoHistory, timeKeepingProvider, clock)),
        .undoMenu = std::make_unique<ui::UndoMenuAdapter>(
            std::make_shared<presentation::UndoMenuViewModel>(undoHistory)),
        .unseenFinishes =
            std::make_unique<ui::UnseenFinishesAdapter>(ports.unseenFinishes, selectedTaskId),
        .updates = std::make_unique<ui::UpdateAdapter>(
            std::make_shared<presentation::CheckForUpdatesViewModel>(ports.updater), ports.updater),
        .newestFocus = std::make_unique<services::NewestFocus>(service, *liveDataFactory),
        .beat = beat};
    return std::make_unique<ui::HomeView>(
        std::make_unique<ui::HomeAdapter>(homeVMFactory.makeViewModel(), subviewsFactory,
                                          std::move(parts), actions.quit),
        windowLoader, actions.windowShouldClose, &platform::bringToFront);
}

}  // namespace hearthmark::app
