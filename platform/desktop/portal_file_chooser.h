// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include "services/ports/file_chooser.h"

namespace hearthmark::platform {

// Asks by the desktop portal. A portal that does not take the question within a few seconds, fails,
// or names what is no file of this machine, is no dialog; once it has taken it, it may wait.
class PortalFileChooser final : public QObject, public services::FileChooser {
    Q_OBJECT

 public:
    void chooseFileToWrite(const std::string& title, const std::string& suggestedName,
                           services::FileKind kind, Answer answer) override;
    void chooseFileToRead(const std::string& title, services::FileKind kind,
                          Answer answer) override;

 private slots:
    void takeResponse(const QDBusMessage& response);

 private:
    void ask(const QString& method, const std::string& title, QVariantMap options,
             services::FileKind kind, Answer answer);
    void close();
    void forget();

    // Empty while nothing is asked.
    QString request_;
    Answer answer_;
    int questions_ = 0;
};

}  // namespace hearthmark::platform
