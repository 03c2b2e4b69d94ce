// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "livedata/published.h"
#include "presentation/note_drafts.h"
#include "store/data_operations_service_protocol.h"
#include "store/store_backups.h"

namespace hearthmark::presentation {

// What the restore sheet shows.
struct RestoreBackupViewState {
    struct Item {
        store::StoreBackup backup;
        // Absent where it cannot be read.
        std::optional<store::StoreBackups::Counts> counts;
    };

    // Newest first; after them those of days that are still to come.
    std::vector<Item> items;
    std::optional<std::size_t> selected;
    // By the selected one; absent where it cannot be restored.
    std::optional<store::RestoreChanges> changes;
    // Why not; empty where nothing is known against it.
    std::string fault;
};

// Lets the person choose a backup, see what it would change, and go back to it. Main thread.
class RestoreBackupViewModel final {
 public:
    // `restart` ends the program, so that the store is closed, and begins it anew with what lies
    // ready.
    RestoreBackupViewModel(
        std::shared_ptr<const store::StoreBackups> backups,
        std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
        std::shared_ptr<NoteDrafts> drafts, std::function<void()> restart);

    livedata::Published<RestoreBackupViewState>& viewState() { return viewState_; }

    // Looks at the backups that there are, and selects none.
    void load();
    void select(std::size_t item);
    // The selected one. Does nothing where it cannot be restored.
    void restore();

 private:
    livedata::Published<RestoreBackupViewState> viewState_;
    std::shared_ptr<const store::StoreBackups> backups_;
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<NoteDrafts> drafts_;
    std::function<void()> restart_;
};

}  // namespace hearthmark::presentation
