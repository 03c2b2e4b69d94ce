// SPDX-License-Identifier: MIT
#include "app/home_view_factory.h"

#include <utility>

#include "presentation/check_for_updates_view_model.h"
#include "presentation/focus_announcement_view_model.h"
#include "presentation/restore_backup_view_model.h"
#include "presentation/undo_deletion_view_model.h"
#include "presentation/view_model_factories.h"
#include "services/in_step_time_keeping_provider.h"
#include "ui/home_adapter.h"
#include "ui/home_view.h"

namespace hearthmark::app {

HomeViewFactory::HomeViewFactory(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<const base::Clock> clock,
    std::shared_ptr<presentation::SelectedTaskId> mutableSelectedTaskId,
    std::shared_ptr<presentation::NoteDrafts> drafts,
    std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider,
    std::shared_ptr<ui::MainWindowLoader> windowLoader, Ports ports,
    ui::AboutAdapter::Program program, Actions actions)
    : dataOperationsService_(std::move(dataOperationsService)),
      liveDataFactory_(std::move(liveDataFactory)),
      clock_(std::move(clock)),
      mutableSelectedTaskId_(std::move(mutableSelectedTaskId)),
      drafts_(std::move(drafts)),
      timeKeepingProvider_(std::move(timeKeepingProvider)),
      windowLoader_(std::move(windowLoader)),
      ports_(std::move(ports)),
      program_(std::move(program)),
      actions_(std::move(actions)) {}

std::unique_ptr<services::HomeViewProtocol> HomeViewFactory::makeHomeView() {
    const presentation::HomeVMFactory homeVMFactory(
        dataOperationsService_,
        std::make_shared<presentation::SelectedTaskIdPublisher>(*mutableSelectedTaskId_));
    const auto beat = std::make_shared<services::InStepTimeKeepingProvider>(timeKeepingProvider_);
    const ui::HomeViewSubviewsFactory subviewsFactory(
        dataOperationsService_, liveDataFactory_, clock_, mutableSelectedTaskId_, drafts_,
        [beat] { return std::make_shared<services::InStepTimeKeepingProvider>(*beat); },
        ports_.clipboard, ports_.calendar);
    const auto focusAnnouncement =
        std::make_shared<presentation::FocusAnnouncementViewModel>(timeKeepingProvider_);
    focusAnnouncement->startObserving(*liveDataFactory_);
    ui::HomeAdapter::Parts parts{
        .about = std::make_unique<ui::AboutAdapter>(program_),
        .appearance = std::make_unique<ui::AppearanceAdapter>(ports_.appearance),
        .focusAnnouncement = std::make_unique<ui::FocusAnnouncementAdapter>(focusAnnouncement),
        .restore = std::make_unique<ui::RestoreAdapter>(
            std::make_shared<presentation::RestoreBackupViewModel>(
                ports_.backups, dataOperationsService_, drafts_, actions_.restartRestored)),
        .startAtLogin = std::make_unique<ui::StartAtLoginAdapter>(ports_.startAtLogin),
        .undo =
            std::make_unique<ui::UndoAdapter>(std::make_shared<presentation::UndoDeletionViewModel>(
                dataOperationsService_, timeKeepingProvider_, clock_)),
        .unseenFinishes = std::make_unique<ui::UnseenFinishesAdapter>(ports_.unseenFinishes,
                                                                      mutableSelectedTaskId_),
        .updates = std::make_unique<ui::UpdateAdapter>(
            std::make_shared<presentation::CheckForUpdatesViewModel>(ports_.updater),
            ports_.updater),
        .newestFocus =
            std::make_unique<presentation::NewestFocus>(dataOperationsService_, *liveDataFactory_),
        .beat = beat};
    return std::make_unique<ui::HomeView>(
        std::make_unique<ui::HomeAdapter>(homeVMFactory.makeViewModel(), subviewsFactory,
                                          std::move(parts), actions_.quit),
        windowLoader_, actions_.windowShouldClose);
}

}  // namespace hearthmark::app
