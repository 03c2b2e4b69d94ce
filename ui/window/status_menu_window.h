// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

class QQmlEngine;
class QQuickWindow;

namespace hearthmark::ui {

// A menu in a window of its own, for a status item that no panel shows one for. Main thread.
class StatusMenuWindow final : public QObject {
    Q_OBJECT

 public:
    struct Line {
        // Empty for one that separates those around it.
        QString text;
        bool isEnabled = false;
        std::function<void()> choose;
    };

    StatusMenuWindow();
    ~StatusMenuWindow() override;

    // Beside the point, where there is room on the screen. Instead of one that is shown.
    void show(const std::vector<Line>& lines, bool isDark, const QPoint& point);

 private:
    // A press anywhere else hides the menu, also on a desktop that takes no keyboard from it.
    bool eventFilter(QObject* watched, QEvent* event) override;
    void drop();

    // Made for the first menu.
    std::unique_ptr<QQmlEngine> engine_;
    std::unique_ptr<QQuickWindow> window_;
};

}  // namespace hearthmark::ui
