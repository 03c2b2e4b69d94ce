// SPDX-License-Identifier: MIT
#include "ui/window/status_menu_window.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QScreen>
#include <QTimer>
#include <QVariantList>
#include <algorithm>
#include <cstddef>

namespace hearthmark::ui {

namespace {

// From the point to the side on which there is room.
int placed(int point, int length, int first, int last) {
    const int start = point + length <= last + 1 ? point : point - length;
    return std::max(first, std::min(start, last + 1 - length));
}

QPoint placeOf(const QWindow& window, const QPoint& point) {
    const QScreen* const at = QGuiApplication::screenAt(point);
    const QRect room = (at != nullptr ? at : window.screen())->geometry();
    return {placed(point.x(), window.width(), room.left(), room.right()),
            placed(point.y(), window.height(), room.top(), room.bottom())};
}

}  // namespace

StatusMenuWindow::StatusMenuWindow() = default;

StatusMenuWindow::~StatusMenuWindow() {
    drop();
}

bool StatusMenuWindow::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        window_->setMouseGrabEnabled(true);  // ends when it is hidden
    } else if (event->type() == QEvent::MouseButtonPress) {
        const QPoint place = static_cast<QMouseEvent*>(event)->position().toPoint();
        if (!QRect(QPoint(), window_->size()).contains(place)) {
            window_->hide();
        }
    }
    return false;
}

// Hidden before, since it tells of that.
void StatusMenuWindow::drop() {
    if (window_) {
        window_->hide();
        window_.reset();
    }
}

void StatusMenuWindow::show(const std::vector<Line>& lines, bool isDark, const QPoint& point) {
    drop();
    if (!engine_) {
        engine_ = std::make_unique<QQmlEngine>();
        engine_->addImportPath(QStringLiteral("qrc:/qt/qml"));
    }
    QStringList texts;
    QList<bool> enabledLines;
    for (const Line& line : lines) {
        texts.append(line.text);
        enabledLines.append(line.isEnabled);
    }
    QQmlComponent component(engine_.get(),
                            QUrl(QStringLiteral("qrc:/qt/qml/Hearthmark/Ui/StatusMenuWindow.qml")));
    window_.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
        {{QStringLiteral("texts"), texts},
         {QStringLiteral("enabledLines"), QVariant::fromValue(enabledLines)},
         {QStringLiteral("isDark"), isDark}})));
    if (!window_) {
        qFatal("The menu cannot be shown: %s", qUtf8Printable(component.errorString()));
    }
    QQuickWindow* const window = window_.get();
    // What is chosen may show another window, or end the program.
    const auto hidden = [lines, window](bool isVisible) {
        const auto chosen = static_cast<std::size_t>(window->property("chosen").toInt());
        if (!isVisible && chosen < lines.size()) {
            QTimer::singleShot(0, qGuiApp, lines[chosen].choose);
        }
    };
    QObject::connect(window, &QWindow::visibleChanged, window, hidden);
    window->installEventFilter(this);
    window->setPosition(placeOf(*window, point));
    window->show();
    window->requestActivate();
}

}  // namespace hearthmark::ui
