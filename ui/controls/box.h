// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QColor>
#include <QQuickItem>

namespace hearthmark::ui {

// What has a ground, a border or round corners. The toolkit's Rectangle puts its sides and corners
// together from whole logical pixels, between which gaps and steps show where the screen is scaled
// by a fraction; the sides of this one, and of its border, lie on the pixels of the screen.
class Box : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY looksChanged FINAL)
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY looksChanged FINAL)
    Q_PROPERTY(qreal borderWidth READ borderWidth WRITE setBorderWidth NOTIFY looksChanged FINAL)
    Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor NOTIFY looksChanged FINAL)

 public:
    // In logical pixels. The border lies inside.
    struct Looks {
        QColor color = Qt::white;
        QColor borderColor = Qt::black;
        qreal radius = 0;
        qreal borderWidth = 0;
    };

    explicit Box(QQuickItem* parent = nullptr);

    QColor color() const { return looks_.color; }
    void setColor(const QColor& color) { set(&Looks::color, color); }
    qreal radius() const { return looks_.radius; }
    void setRadius(qreal radius) { set(&Looks::radius, radius); }
    qreal borderWidth() const { return looks_.borderWidth; }
    void setBorderWidth(qreal width) { set(&Looks::borderWidth, width); }
    QColor borderColor() const { return looks_.borderColor; }
    void setBorderColor(const QColor& color) { set(&Looks::borderColor, color); }

 signals:
    void looksChanged();

 protected:
    QSGNode* updatePaintNode(QSGNode* before, UpdatePaintNodeData* data) override;

 private:
    template <class Value>
    void set(Value Looks::*part, const Value& value) {
        if (looks_.*part != value) {
            looks_.*part = value;
            update();
            emit looksChanged();
        }
    }

    Looks looks_;
};

}  // namespace hearthmark::ui
