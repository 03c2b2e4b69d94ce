// SPDX-License-Identifier: MIT
#pragma once

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QNetworkAccessManager>
#include <QString>
#include <QTimer>
#include <QUrl>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "platform/updates/appcast.h"
#include "platform/updates/https_transfer.h"
#include "platform/updates/package_handover.h"
#include "platform/updates/release_signature.h"
#include "services/ports/updater.h"

namespace hearthmark::platform {

// Updates from a feed. A package is a temporary file in a private directory until its signature has
// been checked, so whatever ends the download leaves nothing of it. After that it is neither
// replaced nor fetched again as long as it may be in use: who installs it twice installs the same
// file. Main thread; requires a QGuiApplication that outlives it.
class AppcastUpdater final : public services::Updater {
 public:
    struct Configuration {
        // Where the feed is; empty for none.
        QUrl feed;
        // Base64 of an Ed25519 public key.
        QByteArray publicKey;
        QString currentVersion;
        // For packages alone: those that nobody has installed for a day are thrown away before the
        // next one comes.
        QString directory;
        // How long the next 100 KB may take.
        std::chrono::milliseconds patience{0};
    };

    explicit AppcastUpdater(Configuration configuration);

    void checkForUpdates() override;
    void install() override;
    bool showPackage() override;
    void dismiss() override;

    livedata::Published<bool>& canCheckForUpdates() override { return canCheckForUpdates_; }
    livedata::Published<services::UpdateState>& state() override { return state_; }
    const std::string& unavailableReason() const override { return unavailableReason_; }

 private:
    void readFeed();
    QString place(int number) const;
    bool openKept();
    void download();
    bool openDownload();
    void verify();
    void verifyNextPart();
    bool keep();
    void handOver();
    void fail(const QString& fault);
    void stop();
    void show(services::UpdatePhase phase, const QString& message = {},
              const QString& package = {});

    Configuration configuration_;
    std::optional<ReleaseKey> key_;
    std::string unavailableReason_;
    livedata::Published<bool> canCheckForUpdates_;
    livedata::Published<services::UpdateState> state_;
    // Made for the first check: most runs of the program never look for an update.
    std::unique_ptr<QNetworkAccessManager> network_;
    QBuffer feed_;
    AppcastItem item_;
    qint64 received_ = 0;
    // One that is being fetched, or one that was kept and is looked at again.
    std::unique_ptr<QFile> package_;
    bool isKept_ = false;
    QCryptographicHash digest_{QCryptographicHash::Sha512};
    // One turn of the event loop for each part, so that a large package does not stop the program.
    QTimer verification_;
    // Writes into the feed or the package.
    std::unique_ptr<HttpsTransfer> transfer_;
    std::unique_ptr<PackageHandover> handover_;
};

}  // namespace hearthmark::platform
