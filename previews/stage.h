// SPDX-License-Identifier: MIT
#pragma once

#include <QAnimationDriver>
#include <QImage>
#include <memory>

#include "previews/preview.h"

class QQuickWindow;

namespace hearthmark::previews {

// Fixes what a picture must not depend on: fonts, time zone, language, the desktop's settings. To
// be called before the application object is made; needs no display.
void prepareEnvironment();

// Draws previews, one after another. Needs the application object and lives shorter. Animations go
// on only by steps of its own.
class Stage {
 public:
    Stage();

    // Of the preview's size times its scale.
    QImage picture(const Preview& preview);

 private:
    class Animations final : public QAnimationDriver {
     public:
        void proceed();
        qint64 elapsed() const override { return milliseconds_; }

     private:
        qint64 milliseconds_ = 0;
    };

    void show(QQuickWindow& window, const Preview& preview);
    void settle();
    QImage pictureOfHome(const Preview& preview);
    QImage pictureOfPart(const Preview& preview);
    // PartWindow.qml with the adapter as one of its properties.
    QImage pictureOfPart(const Preview& preview, const QString& property, QObject& adapter);

    Animations animations_;
};

}  // namespace hearthmark::previews
