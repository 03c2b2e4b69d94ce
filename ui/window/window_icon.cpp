// SPDX-License-Identifier: MIT
#include "ui/window/window_icon.h"

#include <QFile>
#include <QImage>
#include <QPixmap>
#include <QString>
#include <array>

namespace hearthmark::ui {

namespace {

constexpr std::array kSizes{16, 24, 32, 48};

// Bare pixels, drawn by the build: to draw or decode them would take 2 ms and 0.2 MiB of each
// start.
QImage picture(int size) {
    QFile file(QStringLiteral(":/hearthmark/icons/%1.argb").arg(size));
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    if (!file.open(QIODevice::ReadOnly) || file.read(reinterpret_cast<char*>(image.bits()),
                                                     image.sizeInBytes()) != image.sizeInBytes()) {
        qFatal("The program's icon is not complete.");
    }
    return image;
}

}  // namespace

QIcon windowIcon() {
    QIcon icon;
    for (const int size : kSizes) {
        icon.addPixmap(QPixmap::fromImage(picture(size)));
    }
    return icon;
}

QImage programPicture() {
    return picture(kSizes.back());
}

}  // namespace hearthmark::ui
