// SPDX-License-Identifier: MIT
#include "ui/notes/whole_note_adapter.h"

#include <QClipboard>
#include <QGuiApplication>
#include <utility>

#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

WholeNoteAdapter::WholeNoteAdapter(std::string text) : text_(std::move(text)) {
    lines_.setText(text_);
}

void WholeNoteAdapter::copy() const {
    QGuiApplication::clipboard()->setText(toQString(text_));
}

}  // namespace hearthmark::ui
