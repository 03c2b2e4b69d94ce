// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QPoint>
#include <QString>
#include <functional>
#include <memory>

#include "platform/status_item/status_icon.h"

namespace hearthmark::platform {

// The status item of X11's older panels: a small window of ours inside the panel's system tray,
// with the picture and the whole title, as wide as they need. Comes back when the panel starts
// anew. Main thread.
class DockedStatusWindow final : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

 public:
    // Whether the program runs on an X server.
    static bool isPossible();

    // Called from the event loop.
    struct Handlers {
        // It was clicked.
        std::function<void()> activate;
        // It was clicked there with the right button: this tray shows no menu itself.
        std::function<void(const QPoint& place)> showMenu;
    };

    // Looks for a panel at once. Requires isPossible().
    explicit DockedStatusWindow(Handlers handlers);
    ~DockedStatusWindow() override;

    void setContent(const QString& title, const StatusIconState& icon);

    bool isDocked() const { return isDocked_; }

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

 private:
    struct Atoms;
    class Window;

    void dock();
    void reparented(quint32 parent);
    void undockSoon();
    void undock();

    Handlers handlers_;
    // The server's numbers for the names of the protocol.
    std::unique_ptr<const Atoms> atoms_;
    QString title_;
    StatusIconState icon_;
    // Present from when a panel is asked until it has gone.
    std::unique_ptr<Window> window_;
    quint32 windowId_ = 0;
    bool isDocked_ = false;
};

}  // namespace hearthmark::platform
