// SPDX-License-Identifier: MIT
#include "platform/desktop/program_windows.h"

#include <QGuiApplication>
#include <QPointer>
#include <QWindow>
#include <utility>

#include "platform/desktop/window_activation.h"

namespace hearthmark::platform {

namespace {

// Does nothing once the window has gone.
class ProgramWindow final : public services::ApplicationWindow {
 public:
    explicit ProgramWindow(QWindow* window) : window_(window) {}

    void orderFrontRegardless() override {
        if (window_) {
            bringToFront(*window_, {});
        }
    }

    void makeKeyWindow() override {
        if (window_) {
            window_->requestActivate();
        }
    }

 private:
    QPointer<QWindow> window_;
};

}  // namespace

ProgramWindows::ProgramWindows(std::function<void()> makeWindows)
    : makeWindows_(std::move(makeWindows)) {}

std::vector<std::shared_ptr<services::ApplicationWindow>> ProgramWindows::windows() const {
    makeWindows_();
    std::vector<std::shared_ptr<services::ApplicationWindow>> windows;
    for (QWindow* const window : QGuiApplication::topLevelWindows()) {
        if (window->type() == Qt::Window) {
            windows.push_back(std::make_shared<ProgramWindow>(window));
        }
    }
    return windows;
}

}  // namespace hearthmark::platform
