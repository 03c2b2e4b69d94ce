// SPDX-License-Identifier: MIT
#include "ui/window/title_bar.h"

#include <QGuiApplication>
#include <QPalette>

namespace hearthmark::ui {

void TitleBar::componentComplete() {
    draw();
    // Once for both.
    connect(this, &TitleBar::changed, this, &TitleBar::draw, Qt::QueuedConnection);
}

void TitleBar::draw() const {
    if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        return;
    }
    QPalette palette = QGuiApplication::palette();
    if (palette.color(QPalette::Window) == color_) {
        return;
    }
    palette.setColor(QPalette::Window, color_);
    palette.setColor(QPalette::WindowText, textColor_);
    QGuiApplication::setPalette(palette);
    // The toolkit's own has margins, the compositor's is none of the client's concern.
    if (window_->isVisible() && !window_->frameMargins().isNull()) {
        window_->setFlag(Qt::FramelessWindowHint, true);
        window_->setFlag(Qt::FramelessWindowHint, false);
    }
}

}  // namespace hearthmark::ui
