// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "services/home_view_factory_protocol.h"
#include "ui/window/home_adapter.h"
#include "ui/window/toolkit_setting.h"

class QQuickWindow;
class QWindow;

namespace hearthmark::ui {

class MainWindowLoader;

// What the toolkit looks up with the first frame. Each is one wake-up less for each frame.
struct FirstFrameSettings {
    // For how many milliseconds it gathers changes before it draws: all of a second's come
    // together.
    ToolkitSetting gatheringTime{"QT_QPA_UPDATE_IDLE_TIME", "0"};
    // After how many it looks whether a Wayland compositor has asked for another frame, or the
    // window must be out of sight: 0 is never, since it draws none that was not asked for.
    ToolkitSetting patience{"QT_WAYLAND_FRAME_CALLBACK_TIMEOUT", "0"};
};

// The main window with the home screen in it. Hidden until it is shown.
class HomeView final : public QObject, public services::HomeViewProtocol {
    Q_OBJECT

 public:
    // Answers whether the window may close; it may instead hide the program.
    using WindowShouldClose = std::function<bool()>;
    // Shows the window before all others; the token, which may be empty, lets it take the focus.
    using BringToFront = std::function<void(QWindow& window, const std::string& activationToken)>;

    HomeView(std::unique_ptr<HomeAdapter> adapter, std::shared_ptr<MainWindowLoader> loader,
             WindowShouldClose windowShouldClose, BringToFront bringToFront);
    ~HomeView() override;

    void show(const std::string& activationToken) override;
    void hide() override;
    void minimize() override;
    void abandon() override;
    void displayAddSheet() override;
    void startShortFocus() override;
    void requestAttention() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void fitIntoScreen();
    void setShown(bool isShown);

    WindowShouldClose windowShouldClose_;
    BringToFront bringToFront_;
    std::unique_ptr<HomeAdapter> adapter_;
    std::shared_ptr<MainWindowLoader> loader_;
    std::unique_ptr<QQuickWindow> window_;
    std::optional<FirstFrameSettings> firstFrameSettings_{std::in_place};
    // Maximised or full-screen, or neither, when it was hidden: the desktop forgets that.
    Qt::WindowStates hiddenStates_ = Qt::WindowNoState;
    // Where its frame was when it was hidden, where it was free on the screen.
    std::optional<QPoint> place_;
    bool isQuitting_ = false;
};

}  // namespace hearthmark::ui
