// SPDX-License-Identifier: MIT
#include "ui/window/symbol_provider.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace hearthmark::ui {

SymbolProvider::SymbolProvider() : QQuickImageProvider(Image) {}

QImage SymbolProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    QFile file(":/hearthmark/symbols/" + id.section('/', 0, 0) + ".svg");
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("No symbol for %s", qUtf8Printable(id));
        return {};
    }
    const QByteArray drawing =
        file.readAll().replace("currentColor", '#' + id.section('/', 1, 1).toLatin1());
    QSvgRenderer renderer(drawing);
    const QSize natural = renderer.defaultSize();
    if (size != nullptr) {
        *size = natural;
    }
    QImage image(requestedSize.isEmpty() ? natural : requestedSize,
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

}  // namespace hearthmark::ui
