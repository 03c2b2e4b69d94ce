// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>

namespace hearthmark::ui {

// Makes Shift+Return in an editor what Return is. The toolkit types U+2028 instead, which looks the
// same and is no line feed to whoever reads the store or an export. What is pasted stays as it is.
class ShiftedReturnFilter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QObject* editor READ editor WRITE setEditor REQUIRED FINAL)

 public:
    using QObject::QObject;

    QObject* editor() const { return editor_; }
    // To be called once. The editor lives as long as this.
    void setEditor(QObject* editor);

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QObject* editor_ = nullptr;
};

}  // namespace hearthmark::ui
