// SPDX-License-Identifier: MIT
//
// The least that a program of this toolkit can do each second, to compare a quiet one with: what
// waking up costs differs from machine to machine, and from hour to hour.
#include <QCoreApplication>
#include <QTimer>
#include <chrono>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.start(std::chrono::seconds(1));
    return QCoreApplication::exec();
}
