// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QMetaObject>
#include <QObject>
#include <QPointer>
#include <QQuickTextDocument>

#include "ui/notes/notes_adapter.h"

namespace hearthmark::ui {

// Keeps an editor and the open note the same, both ways: what is typed is written into the note at
// each change, and what the note has otherwise, such as that of another task, is shown. The editor
// is left alone while the two agree, so its cursor and its undo history stay.
// Made in QML, which derives from it.
class NoteTextBinding : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(hearthmark::ui::NotesAdapter* adapter READ adapter WRITE setAdapter NOTIFY
                   adapterChanged REQUIRED FINAL)
    Q_PROPERTY(QQuickTextDocument* document READ document WRITE setDocument NOTIFY documentChanged
                   REQUIRED FINAL)

 public:
    using QObject::QObject;

    NotesAdapter* adapter() const { return adapter_; }
    void setAdapter(NotesAdapter* adapter);
    QQuickTextDocument* document() const { return document_; }
    void setDocument(QQuickTextDocument* document);

 signals:
    void adapterChanged();
    void documentChanged();

 private:
    void show();
    void replaceText();
    void write();

    QPointer<NotesAdapter> adapter_;
    QPointer<QQuickTextDocument> document_;
    QMetaObject::Connection shown_;
    QMetaObject::Connection typed_;
    bool isReplacing_ = false;
};

}  // namespace hearthmark::ui
