// SPDX-License-Identifier: MIT
#include "presentation/notes_view_model.h"

#include <utility>
#include <vector>

#include "base/weakly.h"
#include "presentation/texts.h"
#include "store/note.h"

namespace hearthmark::presentation {

NotesViewModel::NotesViewModel(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory,
    std::shared_ptr<const base::Clock> clock, NoteDrafts& drafts, const base::Uuid& taskId)
    : dataOperationsService_(std::move(dataOperationsService)),
      liveDataFactory_(std::move(liveDataFactory)),
      clock_(std::move(clock)),
      taskId_(taskId),
      pendingNote_(drafts.draft(taskId)) {}

void NotesViewModel::startObserving() {
    tasksProvider_ =
        liveDataFactory_->makeProvider<store::Task>({.key = "creationDate", .ascending = true});
    tasksCancellable_ = tasksProvider_->currentItems()->subscribe(
        base::weakly(weak_from_this(), &NotesViewModel::rebuild));
    tasksProvider_->startObserving();
}

void NotesViewModel::rebuild(const store::Tasks& tasks) {
    if (const store::Task* task = store::taskWithId(tasks, taskId_)) {
        viewState_.setValue(view(*task));
    } else {
        viewState_.setValue(NotesViewState::View{.canAddNote = false,
                                                 .onAddNoteTapped = livedata::makeAction([] {}),
                                                 .committedNotes = {},
                                                 .pendingNote = std::nullopt});
    }
}

NotesViewState::View NotesViewModel::view(const store::Task& task) {
    if (newestNotes_ != task.newestNotes()) {
        newestNotes_ = task.newestNotes();
        committedNotes_ = committedNotes(*newestNotes_);
    }
    return {.canAddNote = !*pendingNote_,
            .onAddNoteTapped = makeAction(&NotesViewModel::openPendingNote),
            .committedNotes = committedNotes_,
            .pendingNote = pendingNoteView()};
}

livedata::SharedList<NotesViewState::CommittedNote> NotesViewModel::committedNotes(
    const std::vector<const store::Note*>& notes) {
    std::vector<NotesViewState::CommittedNote> rows;
    rows.reserve(notes.size());
    for (const store::Note* note : notes) {
        if (note->id()) {
            rows.push_back({.id = *note->id(),
                            .noteText = orDash(note->text()),
                            .onDeleteCommand = livedata::makeAction(base::weakly(
                                weak_from_this(),
                                [id = *note->id()](auto& self) {
                                    self.dataOperationsService_->deleteNote(id, self.taskId_);
                                })),
                            .creationDate = note->creationDate()});
        }
    }
    return livedata::SharedList(std::move(rows));
}

std::optional<NotesViewState::PendingNote> NotesViewModel::pendingNoteView() {
    if (!*pendingNote_) {
        return std::nullopt;
    }
    return NotesViewState::PendingNote{
        .noteText = (*pendingNote_)->text,
        .save = "Save",
        .onSaveTap = makeActionOnText(&NotesViewModel::savePendingNote),
        .discard = "Discard",
        .onDiscardTap = makeAction(&NotesViewModel::discardPendingNote),
        .onEdit = makeActionOnText(&NotesViewModel::editPendingNote)};
}

livedata::Action NotesViewModel::makeAction(void (NotesViewModel::*operation)()) {
    return livedata::makeAction(base::weakly(weak_from_this(), operation));
}

livedata::ActionOn<std::string> NotesViewModel::makeActionOnText(
    void (NotesViewModel::*operation)(const std::string&)) {
    return std::make_shared<const livedata::Block<std::string>>(
        base::weakly(weak_from_this(), operation));
}

void NotesViewModel::patchPendingNote() {
    std::optional<NotesViewState::View> patched = viewState_.value();
    // With a placeholder nothing can be done.
    if (patched && (patched->canAddNote || patched->pendingNote)) {
        patched->pendingNote = pendingNoteView();
        patched->canAddNote = !*pendingNote_;
        viewState_.setValue(std::move(patched));
    }
}

void NotesViewModel::openPendingNote() {
    *pendingNote_ = {.creationDate = clock_->now(), .id = base::Uuid::random(), .text = ""};
    patchPendingNote();
}

void NotesViewModel::editPendingNote(const std::string& text) {
    if (!*pendingNote_) {
        return;
    }
    (*pendingNote_)->text = text;
    // The editor shows it already, and a new state at each key would have the rows made anew.
    viewState_.amend([&text](std::optional<NotesViewState::View>& view) {
        if (view && view->pendingNote) {
            view->pendingNote->noteText = text;
        }
    });
}

void NotesViewModel::savePendingNote(const std::string& text) {
    if (const auto note = NoteDrafts::finish(*pendingNote_, text)) {
        dataOperationsService_->addNote(*note, taskId_);
        patchPendingNote();
    }
}

void NotesViewModel::discardPendingNote() {
    pendingNote_->reset();
    patchPendingNote();
}

}  // namespace hearthmark::presentation
