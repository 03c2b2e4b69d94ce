// SPDX-License-Identifier: MIT
#include "platform/updates/https_transfer.h"

#include <QIODevice>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <utility>

namespace hearthmark::platform {

namespace {

constexpr int kMostRedirections = 5;
constexpr qint64 kPart = 100'000;

QSslConfiguration sslConfiguration() {
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    if (const QString file = qEnvironmentVariable("SSL_CERT_FILE"); !file.isEmpty()) {
        configuration.setCaCertificates(QSslCertificate::fromPath(file));
    }
    return configuration;
}

QNetworkRequest networkRequest(const HttpsTransfer::Request& request) {
    QNetworkRequest result(request.address);
    result.setSslConfiguration(sslConfiguration());
    result.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                        QNetworkRequest::NoLessSafeRedirectPolicy);
    result.setMaximumRedirectsAllowed(kMostRedirections);
    result.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    result.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    result.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Hearthmark"));
    // Sizes are those of what is sent, and nothing may unfold into more.
    result.setRawHeader("Accept-Encoding", "identity");
    return result;
}

// Again after a short write, since only the next one tells why.
bool writeAll(QIODevice& destination, QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const qint64 written = destination.write(bytes.data(), bytes.size());
        if (written <= 0) {
            return false;
        }
        bytes = bytes.sliced(written);
    }
    return true;
}

int status(const QNetworkReply& reply) {
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

bool isRefusal(const QNetworkReply& reply) {
    return status(reply) >= 400;
}

QString sentence(const QNetworkReply& reply) {
    if (isRefusal(reply)) {
        return QObject::tr("The update server answers with error %1.").arg(status(reply));
    }
    switch (reply.error()) {
        case QNetworkReply::NoError:
            return {};
        case QNetworkReply::SslHandshakeFailedError:
            return QObject::tr(
                "The update server cannot prove who it is: it has no trusted certificate.");
        case QNetworkReply::InsecureRedirectError:
        case QNetworkReply::ProtocolUnknownError:
            return QObject::tr("The update server leads to an address that is not secure.");
        case QNetworkReply::TooManyRedirectsError:
            return QObject::tr("The update server leads from one address to the next without end.");
        default:
            break;
    }
    // After a redirection there is the status of the server that sent it.
    return status(reply) >= 200 && status(reply) < 300
               ? QObject::tr("The connection to the update server broke off.")
               : QObject::tr("The update server cannot be reached.");
}

}  // namespace

HttpsTransfer::HttpsTransfer(QNetworkAccessManager& manager, const Request& request,
                             QIODevice& destination, OnProgress onProgress, OnEnd onEnd)
    : destination_(destination),
      largestSize_(request.largestSize),
      nextMark_(kPart),
      onProgress_(std::move(onProgress)),
      onEnd_(std::move(onEnd)),
      reply_(manager.get(networkRequest(request))) {
    // However long the page about an error is. Later, since the reply may not be aborted while it
    // tells of it.
    QObject::connect(
        reply_.get(), &QNetworkReply::metaDataChanged, &listener_,
        [this] {
            if (isRefusal(*reply_)) {
                end(sentence(*reply_));
            }
        },
        Qt::QueuedConnection);
    QObject::connect(reply_.get(), &QNetworkReply::readyRead, &listener_, [this] { receive(); });
    QObject::connect(reply_.get(), &QNetworkReply::finished, &listener_,
                     [this] { end(sentence(*reply_)); });
    QObject::connect(&patience_, &QTimer::timeout, &listener_, [this] {
        end(QObject::tr("The update server answers too slowly or not at all."));
    });
    patience_.start(request.patience);
}

HttpsTransfer::~HttpsTransfer() {
    stop();
}

void HttpsTransfer::receive() {
    if (isRefusal(*reply_)) {
        return;
    }
    const QByteArray bytes = reply_->readAll();
    received_ += bytes.size();
    if (received_ > largestSize_) {
        end(QObject::tr("The update server sends more than it may, so the transfer was stopped."));
    } else if (!writeAll(destination_, bytes)) {
        end(QObject::tr("The update cannot be stored: %1.").arg(destination_.errorString()));
    } else {
        if (received_ >= nextMark_) {
            nextMark_ = received_ + kPart;
            patience_.start();
        }
        onProgress_(received_);
    }
}

void HttpsTransfer::stop() {
    patience_.stop();
    reply_->disconnect(&listener_);
    reply_->abort();
}

void HttpsTransfer::end(const QString& fault) {
    stop();
    // By a handle of its own, since it may destroy this.
    if (const OnEnd onEnd = std::exchange(onEnd_, nullptr)) {
        onEnd(fault);
    }
}

}  // namespace hearthmark::platform
