// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>
#include <string>

#include "ui/text/text_lines_model.h"

namespace hearthmark::ui {

// Hands the whole of a long note, of which the pane shows the beginning, to WholeNoteSheet.qml.
// Made anew for each presentation.
class WholeNoteAdapter final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the task detail adapter")
    Q_PROPERTY(hearthmark::ui::TextLinesModel* lines READ lines CONSTANT FINAL)

 public:
    explicit WholeNoteAdapter(std::string text);

    TextLinesModel* lines() { return &lines_; }

    // All of it, to the clipboard.
    Q_INVOKABLE void copy() const;

 private:
    const std::string text_;
    TextLinesModel lines_;
};

}  // namespace hearthmark::ui
