// SPDX-License-Identifier: MIT
#include "ui/notes/note_text_binding.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QTextDocument>

#include "ui/text/text_conversion.h"
#include "ui/text/typed_text.h"

namespace hearthmark::ui {

void NoteTextBinding::setAdapter(NotesAdapter* adapter) {
    if (adapter == adapter_) {
        return;
    }
    if (adapter_) {
        // What is being composed belongs to the note that was shown so far.
        QGuiApplication::inputMethod()->commit();
    }
    disconnect(shown_);
    adapter_ = adapter;
    if (adapter_) {
        shown_ = connect(adapter_, &NotesAdapter::changed, this, &NoteTextBinding::show);
    }
    replaceText();
    emit adapterChanged();
}

void NoteTextBinding::setDocument(QQuickTextDocument* document) {
    if (document == document_) {
        return;
    }
    disconnect(typed_);
    document_ = document;
    if (document_) {
        typed_ = connect(document_->textDocument(), &QTextDocument::contentsChanged, this,
                         &NoteTextBinding::write);
    }
    replaceText();
    emit documentChanged();
}

void NoteTextBinding::show() {
    if (adapter_ && document_ && adapter_->isWriting() &&
        adapter_->noteText() != typedText(*document_)) {
        replaceText();
    }
}

// Together with the undo history, which belongs to the text.
void NoteTextBinding::replaceText() {
    if (adapter_ && document_ && adapter_->isWriting()) {
        isReplacing_ = true;
        document_->textDocument()->setPlainText(toQString(adapter_->noteText()));
        isReplacing_ = false;
    }
}

void NoteTextBinding::write() {
    if (!isReplacing_ && adapter_) {
        adapter_->editNote(typedText(*document_));
    }
}

}  // namespace hearthmark::ui
