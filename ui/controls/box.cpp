// SPDX-License-Identifier: MIT
#include "ui/controls/box.h"

#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <QSGRenderNode>
#include <algorithm>
#include <cmath>

namespace hearthmark::ui {

namespace {

QRectF onPixels(const QRectF& rect, qreal scale) {
    const auto snapped = [scale](qreal edge) { return std::round(edge * scale) / scale; };
    return {QPointF(snapped(rect.left()), snapped(rect.top())),
            QPointF(snapped(rect.right()), snapped(rect.bottom()))};
}

QPainterPath rounded(const QRectF& rect, qreal radius) {
    QPainterPath path;
    if (!rect.isEmpty()) {
        const qreal most = std::min(rect.width(), rect.height()) / 2;
        const qreal drawn = std::clamp(radius, 0.0, most);
        path.addRoundedRect(rect, drawn, drawn);
    }
    return path;
}

// Both in logical pixels of a window whose pixels are that much smaller.
void paint(QPainter& painter, const QRectF& rect, const Box::Looks& looks, qreal scale) {
    const QRectF outer = onPixels(rect, scale);
    if (looks.radius <= 0 && looks.borderWidth <= 0) {
        painter.fillRect(outer, looks.color);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal width =
        looks.borderWidth > 0 ? std::max(1.0, std::floor(looks.borderWidth * scale)) / scale : 0;
    // Up to the middle of the border, so that no ground shows between the two.
    const qreal inset = looks.borderColor.alpha() == 255 ? width / 2 : 0;
    const auto within = [&outer](qreal margin) {
        return outer.adjusted(margin, margin, -margin, -margin);
    };
    if (looks.color.alpha() > 0) {
        painter.fillPath(rounded(within(inset), looks.radius - inset), looks.color);
    }
    if (width > 0) {
        QPainterPath border = rounded(outer, looks.radius);
        border.addPath(rounded(within(width), looks.radius - width));
        painter.fillPath(border, looks.borderColor);
    }
}

class BoxNode final : public QSGRenderNode {
 public:
    explicit BoxNode(QQuickWindow& window) : window_(window) {}

    void show(const QSizeF& size, const Box::Looks& looks) {
        size_ = size;
        looks_ = looks;
        markDirty(DirtyMaterial | DirtyGeometry);
    }

    void render(const RenderState* state) override {
        // What is to be painted anew, in the window; of what lies below only that is, too.
        const QRegion& stale = *state->clipRegion();
        if (stale.isEmpty()) {
            return;
        }
        auto& painter = *static_cast<QPainter*>(window_.rendererInterface()->getResource(
            &window_, QSGRendererInterface::PainterResource));
        painter.setClipRegion(stale);
        painter.setOpacity(inheritedOpacity());
        // Nothing in the window is turned or has a size of its own.
        const QTransform place = matrix()->toTransform();
        paint(painter, place.mapRect(rect()), looks_, painter.device()->devicePixelRatio());
    }

    RenderingFlags flags() const override { return BoundedRectRendering; }
    QRectF rect() const override { return {QPointF(), size_}; }

 private:
    QQuickWindow& window_;
    QSizeF size_;
    Box::Looks looks_;
};

}  // namespace

Box::Box(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

QSGNode* Box::updatePaintNode(QSGNode* before, UpdatePaintNodeData* /*data*/) {
    auto* const node = before != nullptr ? static_cast<BoxNode*>(before) : new BoxNode(*window());
    node->show(size(), looks_);
    return node;
}

}  // namespace hearthmark::ui
