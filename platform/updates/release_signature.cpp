// SPDX-License-Identifier: MIT
#include "platform/updates/release_signature.h"

#include <sodium.h>

#include <algorithm>

namespace hearthmark::platform {

std::optional<ReleaseKey> ReleaseKey::fromBase64(const QByteArray& text) {
    const QByteArray bytes =
        QByteArray::fromBase64Encoding(
            text, QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors)
            .decoded;
    static_assert(kSize == crypto_sign_PUBLICKEYBYTES);
    if (bytes.size() != static_cast<qsizetype>(kSize) || sodium_init() < 0) {
        return std::nullopt;
    }
    ReleaseKey key;
    std::ranges::copy(bytes, key.bytes_.begin());
    return key;
}

bool ReleaseKey::hasSigned(const QString& version, qint64 size, const QByteArray& digest,
                           const QByteArray& signature) const {
    const QByteArray statement = "hearthmark-release:" + version.toLatin1() + ':' +
                                 QByteArray::number(size) + ':' + digest.toHex();
    const auto bytesOf = [](const QByteArray& bytes) {
        return reinterpret_cast<const unsigned char*>(bytes.constData());
    };
    return signature.size() == static_cast<qsizetype>(crypto_sign_BYTES) &&
           crypto_sign_verify_detached(bytesOf(signature), bytesOf(statement),
                                       static_cast<unsigned long long>(statement.size()),
                                       bytes_.data()) == 0;
}

}  // namespace hearthmark::platform
