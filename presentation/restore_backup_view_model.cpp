// SPDX-License-Identifier: MIT
#include "presentation/restore_backup_view_model.h"

#include <utility>

#include "objectstore/store_error.h"

namespace hearthmark::presentation {

namespace {

// Absent where that throws.
template <class Read>
auto readable(const Read& read) -> std::optional<decltype(read())> {
    try {
        return read();
    } catch (const objectstore::StoreError&) {
        return std::nullopt;
    }
}

}  // namespace

RestoreBackupViewModel::RestoreBackupViewModel(
    std::shared_ptr<const store::StoreBackups> backups,
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<NoteDrafts> drafts, std::function<void()> restart)
    : backups_(std::move(backups)),
      dataOperationsService_(std::move(dataOperationsService)),
      drafts_(std::move(drafts)),
      restart_(std::move(restart)) {}

void RestoreBackupViewModel::load() {
    RestoreBackupViewState state;
    try {
        for (store::StoreBackup& backup : backups_->all()) {
            auto counts = readable([&backup] { return store::StoreBackups::counts(backup); });
            state.items.push_back({.backup = std::move(backup), .counts = counts});
        }
    } catch (const objectstore::StoreError& error) {
        state.fault = std::string("The backups cannot be read: ") + error.what();
    }
    viewState_.setValue(std::move(state));
}

void RestoreBackupViewModel::select(std::size_t item) {
    RestoreBackupViewState state = viewState_.value();
    const store::StoreBackup& backup = state.items.at(item).backup;
    state.selected = item;
    state.changes = readable([&] { return backups_->changes(backup); });
    state.fault = state.changes ? "" : "This backup is damaged and cannot be restored.";
    viewState_.setValue(std::move(state));
}

void RestoreBackupViewModel::restore() {
    RestoreBackupViewState state = viewState_.value();
    if (!state.changes) {
        return;
    }
    // As at any quit, so that what is kept of the present holds what was typed and the time until
    // now.
    drafts_->save();
    dataOperationsService_->pauseRunningIntervals();
    try {
        backups_->prepareRestore(state.items.at(state.selected.value()).backup);
    } catch (const objectstore::StoreError& error) {
        dataOperationsService_->resumePausedIntervals();
        state.fault = std::string("Nothing was restored: ") + error.what();
        viewState_.setValue(std::move(state));
        return;
    }
    restart_();
}

}  // namespace hearthmark::presentation
