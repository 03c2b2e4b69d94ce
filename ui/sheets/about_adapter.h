// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>
#include <QString>
#include <functional>

namespace hearthmark::ui {

// What there is to know about the program, for the about sheet.
class AboutAdapter final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the home view factory")
    Q_PROPERTY(QString version READ version CONSTANT FINAL)
    Q_PROPERTY(QString libraries READ libraries CONSTANT FINAL)
    Q_PROPERTY(QString storeFolder READ storeFolder CONSTANT FINAL)
    Q_PROPERTY(QString fault READ fault NOTIFY faultChanged FINAL)

 public:
    struct Program {
        QString version;
        QString storeFolder;
        // False where nothing on the desktop opens folders.
        std::function<bool()> openStoreFolder;
    };

    explicit AboutAdapter(Program program);

    QString version() const { return program_.version; }
    // Each with its licence.
    QString libraries() const;
    QString storeFolder() const { return program_.storeFolder; }
    // Why the folder does not open; empty where nothing is known against it.
    QString fault() const { return fault_; }

    Q_INVOKABLE void openStoreFolder();

 signals:
    void faultChanged();

 private:
    Program program_;
    QString fault_;
};

}  // namespace hearthmark::ui
