// SPDX-License-Identifier: MIT
#include "previews/contact_sheet.h"

#include <QPainter>

namespace hearthmark::previews {

namespace {

constexpr int kColumns = 5;
constexpr int kMargin = 16;
constexpr int kNameHeight = 24;
constexpr QSize kPicture(360, 248);
constexpr QSize kCell(kPicture.width() + kMargin, kPicture.height() + kNameHeight + kMargin);

}  // namespace

QImage contactSheet(const std::vector<std::pair<QString, QImage>>& pictures) {
    const int rows = (static_cast<int>(pictures.size()) + kColumns - 1) / kColumns;
    QImage sheet(kMargin + kColumns * kCell.width(), kMargin + rows * kCell.height(),
                 QImage::Format_RGB32);
    sheet.fill(Qt::gray);
    QPainter painter(&sheet);
    QPoint place(kMargin, kMargin);
    for (const auto& [name, picture] : pictures) {
        const QImage small =
            picture.scaled(kPicture, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        const int left = place.x() + (kPicture.width() - small.width()) / 2;
        painter.drawImage(left, place.y(), small);
        painter.drawText(
            QRect(place.x(), place.y() + kPicture.height(), kPicture.width(), kNameHeight),
            Qt::AlignCenter, name);
        place.rx() += kCell.width();
        if (place.x() >= sheet.width()) {
            place = {kMargin, place.y() + kCell.height()};
        }
    }
    return sheet;
}

}  // namespace hearthmark::previews
