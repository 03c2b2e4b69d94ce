// SPDX-License-Identifier: MIT
#include "presentation/undo_menu_view_model.h"

#include <utility>

#include "base/weakly.h"
#include "presentation/texts.h"

namespace hearthmark::presentation {

namespace {

std::string textOf(const store::Change& change) {
    using Kind = store::Change::Kind;
    const std::string task = "“" + orDash(change.taskName) + "”";
    switch (change.kind) {
        case Kind::addTask:
            return "Add " + task;
        case Kind::deleteTask:
            return "Delete " + task;
        case Kind::renameTask:
            return "Rename " + task;
        case Kind::markTaskDone:
            return "Mark " + task + " Done";
        case Kind::reopenTask:
            return "Reopen " + task;
        case Kind::addInterval:
            return "Add Interval";
        case Kind::deleteInterval:
            return "Delete Interval";
        case Kind::correctInterval:
            return "Correct Interval";
        case Kind::extendInterval:
            return "Extend Interval";
        case Kind::addNote:
            return "Add Note";
        case Kind::deleteNote:
            return "Delete Note";
        case Kind::editNote:
            return "Edit Note";
        case Kind::moveNote:
            return "Move Note";
        case Kind::importTasks:
            return "Import";
    }
    return {};
}

}  // namespace

UndoMenuViewModel::UndoMenuViewModel(std::shared_ptr<store::UndoHistory> undoHistory)
    : undoHistory_(std::move(undoHistory)) {}

void UndoMenuViewModel::startObserving() {
    cancellable_ = undoHistory_->state().subscribeDidChange(
        base::weakly(weak_from_this(), &UndoMenuViewModel::show));
    show();
}

void UndoMenuViewModel::show() {
    const auto item = [this](const std::string& verb, const store::UndoHistory::Step& step,
                             void (store::UndoHistory::*act)()) {
        return step ? std::optional(UndoMenuViewState::Item{
                          .text = verb + textOf(*step),
                          .onTap = livedata::makeAction(
                              base::weakly(weak_from_this(),
                                           [act](auto& self) { ((*self.undoHistory_).*act)(); }))})
                    : std::nullopt;
    };
    const store::UndoHistory::State& next = undoHistory_->state().value();
    viewState_.setValue({.undo = item("Undo ", next.undo, &store::UndoHistory::undo),
                         .redo = item("Redo ", next.redo, &store::UndoHistory::redo)});
}

}  // namespace hearthmark::presentation
