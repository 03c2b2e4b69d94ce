// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>

namespace hearthmark::platform {

// Gives a package to the program that the desktop has for packages, and finds out whether one takes
// it: that the desktop's opener could be started says nothing yet. Begins when it is made; what it
// started goes on when it is destroyed. Main thread; requires an application object.
class PackageHandover final {
 public:
    // Is told once, from the event loop and within some seconds. May destroy this.
    using OnAnswer = std::function<void(bool isTaken)>;

    PackageHandover(const QString& path, OnAnswer onAnswer);

 private:
    void answer(bool isTaken);

    OnAnswer onAnswer_;
    QTimer patience_;
    // Hears the opener for this.
    QObject listener_;
};

}  // namespace hearthmark::platform
