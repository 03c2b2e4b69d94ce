// SPDX-License-Identifier: MIT
//
// The least that a program with a window of this toolkit can be, to compare the whole process with.
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>

int main(int argc, char** argv) {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    const QQmlApplicationEngine engine(QUrl("qrc:/qt/qml/Hearthmark/Benchmarks/BareWindow.qml"));
    return QGuiApplication::exec();
}
