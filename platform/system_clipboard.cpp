// SPDX-License-Identifier: MIT
#include "platform/system_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

namespace hearthmark::platform {

void SystemClipboard::setString(const std::string& text) {
    auto data = std::make_unique<QMimeData>();
    // As bytes, since a detour through the toolkit's text would mend what is not UTF-8.
    data->setData(QStringLiteral("text/plain"), QByteArray::fromStdString(text));
    QGuiApplication::clipboard()->setMimeData(data.release());
}

}  // namespace hearthmark::platform
