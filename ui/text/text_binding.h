// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QMetaObject>
#include <QObject>
#include <QPointer>
#include <QQuickTextDocument>

#include "ui/text/written_text.h"

namespace hearthmark::ui {

// Keeps an editor and what it writes the same, both ways: what is typed is written at each change,
// and what is there otherwise, such as the note of another task, is shown. The editor
// is left alone while the two agree, so its cursor and its undo history stay.
// Made in QML, which derives from it.
class TextBinding : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(hearthmark::ui::WrittenText* adapter READ adapter WRITE setAdapter NOTIFY
                   adapterChanged REQUIRED FINAL)
    Q_PROPERTY(QQuickTextDocument* document READ document WRITE setDocument NOTIFY documentChanged
                   REQUIRED FINAL)

 public:
    using QObject::QObject;

    WrittenText* adapter() const { return adapter_; }
    void setAdapter(WrittenText* adapter);
    QQuickTextDocument* document() const { return document_; }
    void setDocument(QQuickTextDocument* document);

 signals:
    void adapterChanged();
    void documentChanged();

 private:
    void show();
    void replaceText();
    void write();

    QPointer<WrittenText> adapter_;
    QPointer<QQuickTextDocument> document_;
    QMetaObject::Connection shown_;
    QMetaObject::Connection typed_;
    bool isReplacing_ = false;
};

}  // namespace hearthmark::ui
