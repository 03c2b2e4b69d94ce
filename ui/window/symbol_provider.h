// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickImageProvider>

namespace hearthmark::ui {

// Draws the program's own symbols in any colour: image://symbols/<name>/<rrggbb>. The pictures are
// SVG files that paint with currentColor. An unknown name gives an empty picture and a warning.
class SymbolProvider final : public QQuickImageProvider {
 public:
    SymbolProvider();

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

}  // namespace hearthmark::ui
