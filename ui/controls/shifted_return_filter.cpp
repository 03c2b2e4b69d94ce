// SPDX-License-Identifier: MIT
#include "ui/controls/shifted_return_filter.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace hearthmark::ui {

void ShiftedReturnFilter::setEditor(QObject* editor) {
    editor_ = editor;
    editor->installEventFilter(this);
}

bool ShiftedReturnFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    auto& key = static_cast<QKeyEvent&>(*event);
    if (!key.matches(QKeySequence::InsertLineSeparator)) {
        return false;
    }
    QKeyEvent plain(QEvent::KeyPress, key.key(), key.modifiers() & ~Qt::ShiftModifier, key.text(),
                    key.isAutoRepeat());
    QCoreApplication::sendEvent(watched, &plain);
    key.setAccepted(plain.isAccepted());
    return true;
}

}  // namespace hearthmark::ui
