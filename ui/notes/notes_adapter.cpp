// SPDX-License-Identifier: MIT
#include "ui/notes/notes_adapter.h"

#include <utility>

#include "base/text.h"
#include "ui/state/run_action.h"
#include "ui/text/text_conversion.h"
#include "ui/text/typed_text.h"

namespace hearthmark::ui {

NotesAdapter::NotesAdapter(std::shared_ptr<presentation::NotesViewModelProtocol> viewModel)
    : viewModel_(std::move(viewModel)) {
    follow(viewModel_->viewState());
    viewModel_->startObserving();
}

void NotesAdapter::show() {
    followText(text());
    emit changed();
}

std::string NotesAdapter::text() const {
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

void NotesAdapter::type(const std::string& text) {
    if (isWriting()) {
        const auto edit = state()->pendingNote->onEdit;
        (*edit)(text);
        followText(text);
    }
}

void NotesAdapter::followText(const std::string& text) {
    if (replace(canSave_, !base::trimmed(text).empty())) {
        emit canSaveChanged();
    }
}

}  // namespace hearthmark::ui
