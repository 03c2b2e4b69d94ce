// SPDX-License-Identifier: MIT
#include "platform/status_item/status_icon.h"

#include <QFont>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QRectF>
#include <algorithm>
#include <cmath>
#include <utility>

namespace hearthmark::platform {

namespace {

constexpr double kSecondsPerMinute = 60;
constexpr int kMinutesPerHour = 60;
constexpr int kLeastMinutesShownAsHours = 100;
constexpr int kMostHours = 99;

// Lengths are pixels of the smallest picture and grow with it.
constexpr double kSide = 22;
constexpr QPointF kCenter(kSide / 2, kSide / 2);
constexpr double kContourRadius = 11;
constexpr double kDiscRadius = 10.4;
constexpr double kRingRadius = 9.1;
constexpr double kRingWidth = 2;
constexpr QRectF kTextArea(3.9, 5.5, 14.2, 11);
constexpr QPointF kDotCenter(17.6, 4.4);
constexpr double kDotRadius = 4.2;

const QColor kContourColor(255, 255, 255, 200);
const QColor kRingGroundColor(0x6b, 0x57, 0x49);
const QColor kRingColor(0xff, 0x93, 0x3f);
const QColor kFlameColor(0xff, 0x93, 0x3f);
const QColor kFlameCoreColor(0xff, 0xd9, 0x8a);
const QColor kDotColor(0xd8, 0x1e, 0x3f);

enum class Rounding { up, down };

int wholeMinutes(base::Seconds time, Rounding rounding) {
    const double minutes = time.count() / kSecondsPerMinute;
    const double whole = rounding == Rounding::up ? std::ceil(minutes) : std::floor(minutes);
    // Also what is no number ends in the range, so that it has a picture.
    return static_cast<int>(std::fmax(0, std::fmin(whole, kMostHours * kMinutesPerHour)));
}

std::string textOf(int minutes, Rounding rounding) {
    if (minutes < kLeastMinutesShownAsHours) {
        return std::to_string(minutes);
    }
    const int extra = rounding == Rounding::up ? kMinutesPerHour - 1 : 0;
    return std::to_string((minutes + extra) / kMinutesPerHour) + "h";
}

void fillCircle(QPainter& painter, const QPointF& center, double radius, const QColor& color) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(center, radius, radius);
}

void strokeRing(QPainter& painter, int steps) {
    constexpr int kFullCircle = 360 * 16;
    constexpr int kTop = 90 * 16;
    const QRectF square(kCenter - QPointF(kRingRadius, kRingRadius),
                        QSizeF(2 * kRingRadius, 2 * kRingRadius));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(kRingGroundColor, kRingWidth));
    painter.drawEllipse(square);
    painter.setPen(QPen(kRingColor, kRingWidth, Qt::SolidLine, Qt::FlatCap));
    // The gap opens at the top and grows with the clock.
    painter.drawArc(square, kTop, kFullCircle * steps / StatusIconState::kRingSteps);
}

// As an outline, which is made as large as the area allows whatever the font is.
void fillText(QPainter& painter, const std::string& text) {
    QFont font = QGuiApplication::font();
    font.setBold(true);
    font.setPixelSize(100);
    QPainterPath outline;
    outline.addText({}, font, QString::fromStdString(text));
    QPainterPath tallest;
    tallest.addText({}, font, QStringLiteral("0"));
    constexpr double kNarrowing = 0.86;
    const double scale = kTextArea.height() / tallest.boundingRect().height();
    const double width = outline.boundingRect().width() * scale * kNarrowing;
    const double fit = width > kTextArea.width() ? kTextArea.width() / width : 1;
    painter.save();
    painter.translate(kCenter);
    painter.scale(scale * kNarrowing * fit, scale * std::sqrt(fit));
    painter.translate(-outline.boundingRect().center().x(), -tallest.boundingRect().center().y());
    painter.fillPath(outline, kStatusTextColor);
    painter.restore();
}

void fillFlame(QPainter& painter) {
    QPainterPath flame(QPointF(11.6, 2.6));
    flame.cubicTo(12.2, 6.2, 17.2, 8.2, 17.2, 13);
    flame.cubicTo(17.2, 16.6, 14.6, 18.9, 11, 18.9);
    flame.cubicTo(7.4, 18.9, 4.8, 16.6, 4.8, 13);
    flame.cubicTo(4.8, 10.6, 6, 9.2, 7.2, 7.8);
    flame.cubicTo(7.4, 9.2, 8, 10, 8.8, 10.2);
    flame.cubicTo(8.6, 7.4, 9.4, 4.6, 11.6, 2.6);
    painter.fillPath(flame, kFlameColor);
    QPainterPath core(QPointF(11.4, 10.6));
    core.cubicTo(11.8, 12.4, 14, 13, 14, 15.2);
    core.cubicTo(14, 17.2, 12.6, 18.2, 11, 18.2);
    core.cubicTo(9.4, 18.2, 8, 17.2, 8, 15.2);
    core.cubicTo(8, 13.2, 10.6, 12.8, 11.4, 10.6);
    painter.fillPath(core, kFlameCoreColor);
}

}  // namespace

StatusIconState statusIconState(const std::optional<services::StatusItemProgress>& progress) {
    if (!progress) {
        return {};
    }
    if (progress->maximum.count() == 0) {
        const int spent = wholeMinutes(progress->spent, Rounding::down);
        return {.text = textOf(spent, Rounding::down), .ringSteps = {}};
    }
    const int left = wholeMinutes(progress->maximum - progress->spent, Rounding::up);
    const int whole = std::max(1, wholeMinutes(progress->maximum, Rounding::up));
    // Of the minutes that are written, so that both change at once.
    const int steps = (StatusIconState::kRingSteps * left + whole - 1) / whole;
    return {.text = textOf(left, Rounding::up),
            .ringSteps = std::min(steps, StatusIconState::kRingSteps)};
}

QImage paintStatusIcon(const StatusIconState& state, int size) {
    // In the form in which the toolkit paints on this thread: others go to a pool of threads in
    // pieces, hundreds of wake-ups for one change.
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / kSide, size / kSide);
    fillCircle(painter, kCenter, kContourRadius, kContourColor);
    fillCircle(painter, kCenter, kDiscRadius, kStatusGroundColor);
    if (state.ringSteps) {
        strokeRing(painter, *state.ringSteps);
    }
    if (state.text.empty()) {
        fillFlame(painter);
    } else {
        fillText(painter, state.text);
    }
    if (state.hasDot) {
        fillCircle(painter, kDotCenter, kDotRadius, Qt::white);
        fillCircle(painter, kDotCenter, kDotRadius - 1, kDotColor);
    }
    painter.end();
    return std::move(image).convertToFormat(QImage::Format_ARGB32);
}

QString widestForm(QString title) {
    for (QChar& character : title) {
        if (character.isDigit()) {
            character = QLatin1Char('0');
        }
    }
    return title;
}

QString shortened(QString text, int longest) {
    if (text.size() > longest) {
        text.truncate(longest);
        if (text.back().isHighSurrogate()) {
            text.chop(1);
        }
        text.append(QChar(0x2026));
    }
    return text;
}

}  // namespace hearthmark::platform
