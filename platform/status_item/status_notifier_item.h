// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <QList>
#include <QObject>
#include <QString>
#include <functional>

#include "platform/session/call_gate.h"
#include "platform/status_item/dbus_menu.h"
#include "platform/status_item/status_icon.h"

namespace hearthmark::platform {

// The values that go over the bus, in the order of their fields.
struct StatusPixmap {
    int width = 0;
    int height = 0;
    // ARGB32 in network byte order.
    QByteArray bytes;
};
struct StatusToolTip {
    QString iconName;
    QList<StatusPixmap> icon;
    QString title;
    QString description;
};

// The status item of panels that read it over the session bus: org.kde.StatusNotifierItem and its
// menu. Follows the panel: it is shown again by one that starts late, or anew. Main thread.
class StatusNotifierItem final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ id)
    Q_PROPERTY(QString Title READ name)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(QList<hearthmark::platform::StatusPixmap> IconPixmap READ iconPixmap)
    Q_PROPERTY(QList<hearthmark::platform::StatusPixmap> AttentionIconPixmap READ attentionPixmap)
    Q_PROPERTY(hearthmark::platform::StatusToolTip ToolTip READ toolTip)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
    Q_PROPERTY(QDBusObjectPath Menu READ menuPath)
    Q_PROPERTY(QString XAyatanaLabel READ label)
    Q_PROPERTY(QString XAyatanaLabelGuide READ labelGuide)

 public:
    struct Handlers {
        // It was clicked.
        std::function<void()> activate;
        // A panel shows it now, or none does any more.
        std::function<void()> isHostedChanged;
    };

    // Takes its place on the bus with the next turn of the event loop. Where there is no bus,
    // nothing shows it.
    StatusNotifierItem(Handlers handlers, StatusMenu::Actions menuActions);
    ~StatusNotifierItem() override;

    bool event(QEvent* event) override;

    void setTitle(const QString& title);
    // For the tool tip; empty for none.
    void setTaskName(const QString& taskName);
    // One with a dot asks for attention.
    void setIcon(const StatusIconState& icon);

    bool isHosted() const { return isHosted_ && bus_.isConnected(); }
    DbusMenu& menu() { return menu_; }

    QString category() const;
    QString id() const;
    QString name() const;
    QString label() const { return title_; }
    QString status() const;
    QString iconName() const { return {}; }
    QList<StatusPixmap> iconPixmap() const { return pixmap_; }
    QList<StatusPixmap> attentionPixmap() const;
    StatusToolTip toolTip() const;
    bool itemIsMenu() const { return false; }
    QDBusObjectPath menuPath() const;
    QString labelGuide() const;

 public slots:
    // The names and signatures are those of the interface.
    // NOLINTBEGIN(readability-identifier-naming)
    void Activate(int x, int y);
    void SecondaryActivate(int x, int y);
    void ContextMenu(int x, int y);
    void Scroll(int delta, const QString& orientation);
    void ProvideXdgActivationToken(const QString& token);

 signals:
    void NewToolTip();
    void NewIcon();
    void NewAttentionIcon();
    void NewStatus(const QString& status);
    void XAyatanaNewLabel(const QString& label, const QString& guide);
    // NOLINTEND(readability-identifier-naming)

 private slots:
    void askForHost();

 private:
    void appear();
    void registerAtWatcher();
    void setIsHosted(bool isHosted);
    // With the activation token that the panel has given for it.
    void act(const std::function<void()>& action);

    Handlers handlers_;
    DbusMenu menu_;
    CallGate gate_;
    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    // Without a watcher nobody listens, and nothing is told.
    bool isWatched_ = false;
    bool isHosted_ = false;
    QByteArray activationToken_;
    QString title_;
    QString taskName_;
    StatusIconState icon_;
    QList<StatusPixmap> pixmap_;
};

}  // namespace hearthmark::platform
