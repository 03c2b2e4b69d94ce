// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <optional>

namespace hearthmark::platform {

// The public half of the key that releases are signed with.
class ReleaseKey {
 public:
    // Absent where the text is not the base64 of an Ed25519 public key.
    static std::optional<ReleaseKey> fromBase64(const QByteArray& text);

    // Whether the signature is for a package of this content (its SHA-512) and this size as this
    // very version: one of an older version is not good for a newer one.
    bool hasSigned(const QString& version, qint64 size, const QByteArray& digest,
                   const QByteArray& signature) const;

 private:
    static constexpr std::size_t kSize = 32;

    ReleaseKey() = default;

    std::array<unsigned char, kSize> bytes_{};
};

}  // namespace hearthmark::platform
