// SPDX-License-Identifier: MIT
#include "platform/updates/open_with_desktop.h"

#include <QDesktopServices>
#include <QUrl>

#include "platform/session/unblocked_signals.h"

namespace hearthmark::platform {

bool openWithDesktop(const QString& path) {
    const UnblockedSignals unblocked;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

}  // namespace hearthmark::platform
