// SPDX-License-Identifier: MIT
#include "platform/status_item/system_status_bar.h"

#include <QDBusConnection>
#include <QTimer>
#include <chrono>
#include <optional>
#include <utility>
#include <vector>

#include "platform/status_item/docked_status_window.h"
#include "platform/status_item/status_notifier_item.h"

namespace hearthmark::platform {

namespace {

using namespace std::chrono_literals;

// How long a panel may take to start, or to start anew, before another place is looked for.
constexpr auto kPatience = 2s;

}  // namespace

class SystemStatusBar::Button final : public services::StatusItemButton {
 public:
    explicit Button(const Handlers& handlers)
        : handlers_(handlers),
          item_({.activate = [this] { activate(); },
                 .isHostedChanged = [this] { isHostedChanged(); }},
                {.addTask = handlers.addTask,
                 .show = handlers.show,
                 .checkForUpdates = handlers.checkForUpdates,
                 .quit = handlers.quit}) {
        patience_.setSingleShot(true);
        patience_.setInterval(kPatience);
        QObject::connect(&patience_, &QTimer::timeout, &patience_, [this] { lookForTray(); });
        patience_.start();
    }

    void setTitle(const std::string& title) override {
        title_ = QString::fromStdString(title);
        item_.setTitle(title_);
        showInWindow();
    }

    void setProgress(const std::optional<services::StatusItemProgress>& progress) override {
        item_.setTaskName(progress ? QString::fromStdString(progress->taskName) : QString());
        const bool hasDot = icon_.hasDot;
        icon_ = statusIconState(progress);
        icon_.hasDot = hasDot;
        showIcon();
    }

    void setAction(std::function<void()> action) override { action_ = std::move(action); }

    void setMenu(std::function<std::vector<services::StatusMenuEntry>()> entries) override {
        item_.menu().setEntries(std::move(entries));
    }
    void menuChanged() override { item_.menu().entriesChanged(); }

    void setNeedsAttention(bool needsAttention) {
        icon_.hasDot = needsAttention;
        showIcon();
    }

    void setCanCheckForUpdates(bool canCheckForUpdates) {
        item_.menu().setCanCheckForUpdates(canCheckForUpdates);
    }

    bool isLooking() const { return patience_.isActive(); }
    bool isShown() const { return item_.isHosted() || (window_ && window_->isDocked()); }

 private:
    void activate() {
        setNeedsAttention(false);
        if (action_) {
            action_();
        }
    }

    void isHostedChanged() {
        if (item_.isHosted()) {
            patience_.stop();
            window_.reset();
        } else {
            patience_.start();
        }
    }

    void lookForTray() {
        if (DockedStatusWindow::isPossible()) {
            window_ = std::make_unique<DockedStatusWindow>(DockedStatusWindow::Handlers{
                .activate = [this] { activate(); },
                .showMenu =
                    [this](const QPoint& place) {
                        handlers_.showMenu(item_.menu().lines(), place);
                    }});
            showInWindow();
        }
    }

    void showIcon() {
        item_.setIcon(icon_);
        showInWindow();
    }

    void showInWindow() {
        if (window_) {
            window_->setContent(title_, icon_);
        }
    }

    Handlers handlers_;
    std::function<void()> action_;
    QString title_;
    StatusIconState icon_;
    StatusNotifierItem item_;
    QTimer patience_;
    // Present while no panel shows the item.
    std::unique_ptr<DockedStatusWindow> window_;
};

class SystemStatusBar::Item final : public services::StatusItem {
 public:
    explicit Item(std::shared_ptr<Button> button) : button_(std::move(button)) {}

    services::StatusItemButton* button() override { return button_.get(); }

 private:
    std::shared_ptr<Button> button_;
};

SystemStatusBar::SystemStatusBar(Handlers handlers) : handlers_(std::move(handlers)) {}

std::unique_ptr<services::StatusItem> SystemStatusBar::makeStatusItem(double /*length*/) {
    std::shared_ptr<Button> button;
    if (QDBusConnection::sessionBus().isConnected() || DockedStatusWindow::isPossible()) {
        button = std::make_shared<Button>(handlers_);
        button->setCanCheckForUpdates(canCheckForUpdates_);
        button_ = button;
    }
    return std::make_unique<Item>(std::move(button));
}

bool SystemStatusBar::isShown() const {
    const auto button = button_.lock();
    return button && button->isShown();
}

bool SystemStatusBar::isLooking() const {
    const auto button = button_.lock();
    return button && button->isLooking();
}

void SystemStatusBar::setNeedsAttention(bool needsAttention) {
    if (const auto button = button_.lock()) {
        button->setNeedsAttention(needsAttention);
    }
}

void SystemStatusBar::setCanCheckForUpdates(bool canCheckForUpdates) {
    canCheckForUpdates_ = canCheckForUpdates;
    if (const auto button = button_.lock()) {
        button->setCanCheckForUpdates(canCheckForUpdates);
    }
}

}  // namespace hearthmark::platform
