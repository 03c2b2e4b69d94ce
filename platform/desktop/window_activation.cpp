// SPDX-License-Identifier: MIT
#include "platform/desktop/window_activation.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>
#include <chrono>

#include "platform/session/activation_token.h"

namespace hearthmark::platform {

namespace {

using namespace std::chrono_literals;

// How long a compositor may take to do as a token says.
constexpr auto kPatience = 300ms;

void showAnew(QWindow& window) {
    if (window.isActive() || !window.isVisible()) {
        return;
    }
    const Qt::WindowStates states = window.windowStates();
    window.setVisible(false);
    window.setWindowStates(states);
    window.setVisible(true);
}

}  // namespace

void bringToFront(QWindow& window, const std::string& activationToken) {
    const bool wasVisible = window.isVisible();
    window.setVisible(true);
    // Maximised as it may be beside that.
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.raise();
    const std::string own = takeActivationToken();
    const std::string& token = activationToken.empty() ? own : activationToken;
    if (!token.empty()) {
        // Where the toolkit's Wayland plugin looks for it.
        qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token));
    }
    window.requestActivate();
    // It was for this window alone, not for what the program starts.
    qunsetenv("XDG_ACTIVATION_TOKEN");
    if (wasVisible && QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        QTimer::singleShot(token.empty() ? 0ms : kPatience, &window,
                           [&window] { showAnew(window); });
    }
}

}  // namespace hearthmark::platform
