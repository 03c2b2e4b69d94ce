// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/clock.h"
#include "base/uuid.h"
#include "livedata/published.h"
#include "livedata/subscription.h"
#include "presentation/note_drafts.h"
#include "presentation/notes_view_state.h"
#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"

namespace hearthmark::presentation {

class NotesViewModelProtocol {
 public:
    virtual ~NotesViewModelProtocol() = default;

    // Absent until observation has begun; of a task that is gone, a placeholder with which nothing
    // can be done.
    virtual livedata::Published<std::optional<NotesViewState::View>>& viewState() = 0;

    // Called once, when the notes come on screen.
    virtual void startObserving() = 0;
};

// Makes the state of one task's notes, whole, on every change of the tasks. The note that is being
// written is the task's draft, which outlives this. To be held by a shared pointer: its closures
// hold it weakly.
class NotesViewModel final : public NotesViewModelProtocol,
                             public std::enable_shared_from_this<NotesViewModel> {
 public:
    NotesViewModel(std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
                   std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
                   std::shared_ptr<const base::Clock> clock, NoteDrafts& drafts,
                   const base::Uuid& taskId);

    livedata::Published<std::optional<NotesViewState::View>>& viewState() override {
        return viewState_;
    }
    void startObserving() override;

 private:
    void rebuild(const store::Tasks& tasks);
    NotesViewState::View view(const store::Task& task);
    livedata::SharedList<NotesViewState::CommittedNote> committedNotes(
        const std::vector<const store::Note*>& notes);
    std::optional<NotesViewState::PendingNote> pendingNoteView();
    livedata::Action makeAction(void (NotesViewModel::*operation)());
    livedata::ActionOn<std::string> makeActionOnText(
        void (NotesViewModel::*operation)(const std::string&));
    // Shows whether a note is being written, without a rebuild of the rest.
    void patchPendingNote();

    void openPendingNote();
    void editPendingNote(const std::string& text);
    void savePendingNote(const std::string& text);
    void discardPendingNote();

    livedata::Published<std::optional<NotesViewState::View>> viewState_;
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory_;
    std::shared_ptr<const base::Clock> clock_;
    base::Uuid taskId_;
    // Never null; shared with whoever else has to do with the task's draft.
    std::shared_ptr<NoteDrafts::Draft> pendingNote_;
    std::unique_ptr<store::LiveDataProvider<store::Task>> tasksProvider_;
    livedata::Subscription tasksCancellable_;
    // Of the last state, with what they were made of.
    livedata::SharedList<NotesViewState::CommittedNote> committedNotes_;
    std::shared_ptr<const std::vector<const store::Note*>> newestNotes_;
};

}  // namespace hearthmark::presentation
