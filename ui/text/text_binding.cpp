// SPDX-License-Identifier: MIT
#include "ui/text/text_binding.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QTextDocument>

#include "ui/text/text_conversion.h"
#include "ui/text/typed_text.h"

namespace hearthmark::ui {

void TextBinding::setAdapter(WrittenText* adapter) {
    if (adapter == adapter_) {
        return;
    }
    if (adapter_) {
        // What is being composed belongs to the text that was shown so far.
        QGuiApplication::inputMethod()->commit();
    }
    disconnect(shown_);
    adapter_ = adapter;
    if (adapter_) {
        shown_ = connect(adapter_, &WrittenText::changed, this, &TextBinding::show);
    }
    replaceText();
    emit adapterChanged();
}

void TextBinding::setDocument(QQuickTextDocument* document) {
    if (document == document_) {
        return;
    }
    disconnect(typed_);
    document_ = document;
    if (document_) {
        typed_ = connect(document_->textDocument(), &QTextDocument::contentsChanged, this,
                         &TextBinding::write);
    }
    replaceText();
    emit documentChanged();
}

void TextBinding::show() {
    if (adapter_ && document_ && adapter_->isWriting() &&
        adapter_->text() != typedText(*document_)) {
        replaceText();
    }
}

// Together with the undo history, which belongs to the text.
void TextBinding::replaceText() {
    if (adapter_ && document_ && adapter_->isWriting()) {
        isReplacing_ = true;
        document_->textDocument()->setPlainText(toQString(adapter_->text()));
        isReplacing_ = false;
    }
}

void TextBinding::write() {
    if (!isReplacing_ && adapter_) {
        adapter_->type(typedText(*document_));
    }
}

}  // namespace hearthmark::ui
