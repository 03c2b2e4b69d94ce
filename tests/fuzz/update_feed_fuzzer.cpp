// SPDX-License-Identifier: MIT
//
// Reads feeds as the updater does: what can be installed is described in full, and is of a version
// higher than the program's.
#include <QVersionNumber>
#include <cstdlib>

#include "platform/updates/appcast.h"

using namespace hearthmark::platform;

// NOLINTNEXTLINE(readability-identifier-naming): the library's name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray feed(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto [verdict, item] = readAppcast(feed, QStringLiteral("1.2"));
    const QVersionNumber version = QVersionNumber::fromString(item.version);
    const bool isFound = verdict >= AppcastVerdict::incomplete;
    bool holds = isFound ? version > QVersionNumber(1, 2) && !item.version.contains('/')
                         : item.version.isEmpty();
    if (verdict == AppcastVerdict::newer) {
        // Once installed it is not offered again.
        holds = holds && item.package.isValid() && item.package.scheme() == "https" &&
                item.size > 0 && item.size <= 200'000'000 && !item.signature.isEmpty() &&
                readAppcast(feed, item.version).verdict < AppcastVerdict::newer;
    }
    if (!holds) {
        std::abort();
    }
    return 0;
}
