// SPDX-License-Identifier: MIT
//
// Usage: render_icon DRAWING SIZE FILE
// Draws an SVG file as a square picture of so many pixels: a PNG file, or, where the name ends in
// ".argb", the bare pixels of QImage::Format_ARGB32_Premultiplied.
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <cstdlib>
#include <iostream>

namespace {

bool save(const QImage& image, const QString& name) {
    if (!name.endsWith(QLatin1String(".argb"))) {
        return image.save(name, "PNG");
    }
    QFile file(name);
    return file.open(QIODevice::WriteOnly) &&
           file.write(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()) ==
               image.sizeInBytes() &&
           file.flush();
}

}  // namespace

int main(int argc, char** argv) {
    constexpr int kArguments = 4;
    if (argc != kArguments) {
        std::cerr << "Usage: render_icon DRAWING SIZE FILE" << std::endl;
        return EXIT_FAILURE;
    }
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    const int size = QString::fromLocal8Bit(argv[2]).toInt();
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    if (!drawing.isValid() || image.isNull()) {
        std::cerr << argv[1] << " cannot be drawn with " << argv[2] << " pixels." << std::endl;
        return EXIT_FAILURE;
    }
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    if (!save(image, QString::fromLocal8Bit(argv[3]))) {
        std::cerr << argv[3] << " cannot be written." << std::endl;
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
