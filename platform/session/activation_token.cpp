// SPDX-License-Identifier: MIT
#include "platform/session/activation_token.h"

#include <QByteArray>

namespace hearthmark::platform {

std::string takeActivationToken() {
    std::string token;
    // X11's older name of it comes last.
    for (const char* const variable : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"}) {
        if (token.empty()) {
            token = qgetenv(variable).toStdString();
        }
        qunsetenv(variable);
    }
    return token;
}

}  // namespace hearthmark::platform
