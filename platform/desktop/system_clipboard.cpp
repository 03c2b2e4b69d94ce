// SPDX-License-Identifier: MIT
#include "platform/desktop/system_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <memory>

namespace hearthmark::platform {

SystemClipboard::SystemClipboard() {
    // Each editor would ask at each change what there is to paste, and the toolkit waits five
    // seconds for the answer of a program that hangs. Nobody else listens.
    QGuiApplication::clipboard()->blockSignals(true);
}

void SystemClipboard::setString(const std::string& text) {
    setStringAndPicture(text, {});
}

void SystemClipboard::setStringAndPicture(const std::string& text, const std::string& png) {
    auto data = std::make_unique<QMimeData>();
    // As bytes, since a detour through the toolkit's text would mend what is not UTF-8.
    data->setData(QStringLiteral("text/plain"), QByteArray::fromStdString(text));
    if (const QImage picture = QImage::fromData(QByteArray::fromStdString(png));
        !picture.isNull()) {
        data->setImageData(picture);
    }
    QGuiApplication::clipboard()->setMimeData(data.release());
}

}  // namespace hearthmark::platform
