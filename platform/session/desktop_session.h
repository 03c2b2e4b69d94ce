// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>

class QDBusObjectPath;

namespace hearthmark::platform {

// Hears of the end of the session from org.gnome.SessionManager, which GNOME and others have on the
// session bus, where the toolkit does not: it speaks to session managers by X11 alone. Main thread.
class DesktopSession final : public QObject {
    Q_OBJECT

 public:
    // `willEnd` is called from the event loop. The session waits, for some seconds, until this
    // process has ended. Requires a QGuiApplication.
    explicit DesktopSession(std::function<void()> willEnd);

 private slots:
    void queryEndSession(uint flags);
    void endSession(uint flags);
    void stop();

 private:
    void join();
    void listen(const QDBusObjectPath& client);

    std::function<void()> willEnd_;
    QString client_;
};

}  // namespace hearthmark::platform
