// SPDX-License-Identifier: MIT
#pragma once

#include <QNetworkReply>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QUrl>
#include <chrono>
#include <functional>
#include <memory>

class QIODevice;
class QNetworkAccessManager;

namespace hearthmark::platform {

// Fetches one file over HTTPS into a device; every address that it is led to must be one of HTTPS
// too. Begins when it is made and ends without a word when it is destroyed. Main thread.
//
// Certificates are checked against those of the system or, as OpenSSL has it, those in the file
// that SSL_CERT_FILE names.
class HttpsTransfer final {
 public:
    struct Request {
        QUrl address;
        // In bytes; a transfer that brings more is ended.
        qint64 largestSize = 0;
        // How long the next 100 KB may take, or all where it is less: also what comes byte by byte
        // has an end.
        std::chrono::milliseconds patience{0};
    };
    // Is told how many bytes have come.
    using OnProgress = std::function<void(qint64)>;
    // Is told once what went wrong, as a sentence; an empty one where nothing did. May destroy the
    // transfer.
    using OnEnd = std::function<void(const QString&)>;

    // Requires: the manager and the open device outlive the transfer.
    HttpsTransfer(QNetworkAccessManager& manager, const Request& request, QIODevice& destination,
                  OnProgress onProgress, OnEnd onEnd);
    HttpsTransfer(const HttpsTransfer&) = delete;
    HttpsTransfer& operator=(const HttpsTransfer&) = delete;
    ~HttpsTransfer();

 private:
    // A reply may not be deleted while it speaks.
    struct DeleteLater {
        void operator()(QObject* object) const { object->deleteLater(); }
    };

    void receive();
    void stop();
    void end(const QString& fault);

    QIODevice& destination_;
    qint64 largestSize_;
    qint64 received_ = 0;
    // With how many bytes the time begins anew.
    qint64 nextMark_;
    OnProgress onProgress_;
    OnEnd onEnd_;
    QTimer patience_;
    // Hears the reply for this. The toolkit hears it too, also to end it when it is aborted.
    QObject listener_;
    std::unique_ptr<QNetworkReply, DeleteLater> reply_;
};

}  // namespace hearthmark::platform
