// SPDX-License-Identifier: MIT
#include "ui/window/message_window.h"

#include <QGuiApplication>
#include <QPalette>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <memory>

#include "ui/window/window_icon.h"

namespace hearthmark::ui {

void showMessageWindow(const std::string& message) {
    const QPalette palette = QGuiApplication::palette();
    const bool isDark = palette.color(QPalette::WindowText).lightness() >
                        palette.color(QPalette::Window).lightness();
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    QQmlComponent component(&engine,
                            QUrl(QStringLiteral("qrc:/qt/qml/Hearthmark/Ui/MessageWindow.qml")));
    const std::unique_ptr<QObject> object(component.createWithInitialProperties(
        {{QStringLiteral("message"), QString::fromStdString(message)},
         {QStringLiteral("isDark"), isDark}}));
    auto* const window = qobject_cast<QQuickWindow*>(object.get());
    if (window == nullptr) {
        qFatal("The message cannot be shown: %s", qUtf8Printable(component.errorString()));
    }
    window->setIcon(windowIcon());
    window->setMinimumSize(window->size());
    window->show();
    window->requestActivate();
    QGuiApplication::exec();
}

}  // namespace hearthmark::ui
