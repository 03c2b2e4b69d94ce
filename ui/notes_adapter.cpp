// SPDX-License-Identifier: MIT
#include "ui/notes_adapter.h"

#include <utility>

#include "base/text.h"
#include "ui/run_action.h"
#include "ui/text_conversion.h"
#include "ui/typed_text.h"

namespace hearthmark::ui {

NotesAdapter::NotesAdapter(std::shared_ptr<presentation::NotesViewModelProtocol> viewModel)
    : viewModel_(std::move(viewModel)),
      subscription_(viewModel_->viewState().subscribeDidChange([this] {
          follow(noteText());
          emit shown();
      })) {
    viewModel_->startObserving();
}

std::string NotesAdapter::noteText() const {
    return isWriting() ? state()->pendingNote->noteText : std::string();
}

QString NotesAdapter::saveText() const {
    return isWriting() ? toQString(state()->pendingNote->save) : QString();
}

QString NotesAdapter::discardText() const {
    return isWriting() ? toQString(state()->pendingNote->discard) : QString();
}

void NotesAdapter::addNote() const {
    if (canAddNote()) {
        run(state()->onAddNoteTapped);
    }
}

void NotesAdapter::saveNote(const QQuickTextDocument* text) const {
    if (isWriting()) {
        const auto save = state()->pendingNote->onSaveTap;
        (*save)(typedText(*text));
    }
}

void NotesAdapter::discardNote() const {
    if (isWriting()) {
        run(state()->pendingNote->onDiscardTap);
    }
}

void NotesAdapter::editNote(const std::string& text) {
    if (isWriting()) {
        const auto edit = state()->pendingNote->onEdit;
        (*edit)(text);
        follow(text);
    }
}

void NotesAdapter::follow(const std::string& text) {
    const bool canSave = !base::trimmed(text).empty();
    if (canSave != canSave_) {
        canSave_ = canSave;
        emit canSaveChanged();
    }
}

}  // namespace hearthmark::ui
