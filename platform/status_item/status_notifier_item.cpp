// SPDX-License-Identifier: MIT
#include "platform/status_item/status_notifier_item.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QTimer>
#include <QtEndian>
#include <array>
#include <utility>

#include "platform/desktop/dbus_answer.h"
#include "platform/desktop/dbus_structure.h"
#include "platform/session/application_object.h"
#include "platform/session/startup_sequence.h"

namespace hearthmark::platform {

namespace {

constexpr auto kItemPath = "/StatusNotifierItem";
constexpr auto kMenuPath = "/StatusNotifierItem/Menu";
constexpr auto kWatcher = "org.kde.StatusNotifierWatcher";
constexpr auto kWatcherPath = "/StatusNotifierWatcher";
// What panels ask for at the usual scales.
constexpr std::array kSizes{22, 32, 44, 48};
// A tool tip is no place for a long text, and it is sent each second.
constexpr int kLongestTaskName = 200;

QList<StatusPixmap> pixmaps(const StatusIconState& state) {
    QList<StatusPixmap> all;
    for (const int size : kSizes) {
        const QImage image = paintStatusIcon(state, size);
        QByteArray bytes(image.sizeInBytes(), Qt::Uninitialized);
        qToBigEndian<quint32>(image.constBits(), image.sizeInBytes() / 4, bytes.data());
        all.append({size, size, bytes});
    }
    return all;
}

// Panels read it as markup; those of the toolkit, such as Plasma's, only where they see an element.
QString markup(const QString& text) {
    return text.isEmpty() ? text : QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
}

}  // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const StatusPixmap& pixmap) {
    return writeStructure(argument, pixmap.width, pixmap.height, pixmap.bytes);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusPixmap& pixmap) {
    return readStructure(argument, pixmap.width, pixmap.height, pixmap.bytes);
}

QDBusArgument& operator<<(QDBusArgument& argument, const StatusToolTip& toolTip) {
    return writeStructure(argument, toolTip.iconName, toolTip.icon, toolTip.title,
                          toolTip.description);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusToolTip& toolTip) {
    return readStructure(argument, toolTip.iconName, toolTip.icon, toolTip.title,
                         toolTip.description);
}

StatusNotifierItem::StatusNotifierItem(Handlers handlers, StatusMenu::Actions menuActions)
    : handlers_(std::move(handlers)),
      menu_({.addTask = [this, add = std::move(menuActions.addTask)] { act(add); },
             .show = [this, show = std::move(menuActions.show)] { act(show); },
             .checkForUpdates = [this,
                                 check = std::move(menuActions.checkForUpdates)] { act(check); },
             .quit = std::move(menuActions.quit)}),
      gate_(kMostCalls),
      bus_(QDBusConnection::sessionBus()) {
    // Each step waits for the thread of the bus, and the window comes first.
    QTimer::singleShot(0, this, &StatusNotifierItem::appear);
}

void StatusNotifierItem::appear() {
    pixmap_ = pixmaps(icon_);
    if (!bus_.isConnected()) {
        return;
    }
    qDBusRegisterMetaType<StatusPixmap>();
    qDBusRegisterMetaType<QList<StatusPixmap>>();
    qDBusRegisterMetaType<StatusToolTip>();
    constexpr auto kExported = QDBusConnection::ExportAllSlots |
                               QDBusConnection::ExportAllProperties |
                               QDBusConnection::ExportAllSignals;
    bus_.registerObject(kItemPath, this, kExported);
    bus_.registerObject(kMenuPath, &menu_, kExported);
    for (const char* change : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
        bus_.connect({}, kWatcherPath, kWatcher, QLatin1String(change), this, SLOT(askForHost()));
    }
    watcher_.setConnection(bus_);
    watcher_.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    watcher_.addWatchedService(QLatin1String(kWatcher));
    connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& /*service*/, const QString& /*old*/, const QString& owner) {
                isWatched_ = false;
                setIsHosted(false);
                if (!owner.isEmpty()) {
                    registerAtWatcher();
                }
            });
    registerAtWatcher();
}

// The panel takes the item away when the connection ends; no unregistering is known.
StatusNotifierItem::~StatusNotifierItem() {
    bus_.unregisterObject(kMenuPath);
    bus_.unregisterObject(kItemPath);
}

bool StatusNotifierItem::event(QEvent* event) {
    return !gate_.admits(*event) || QObject::event(event);
}

void StatusNotifierItem::setTitle(const QString& title) {
    if (title_ == title) {
        return;
    }
    title_ = title;
    menu_.setTitle(title);
    if (isWatched_) {
        emit NewToolTip();
        emit XAyatanaNewLabel(title_, labelGuide());
    }
}

void StatusNotifierItem::setTaskName(const QString& taskName) {
    const QString name = shortened(taskName, kLongestTaskName);
    if (taskName_ != name) {
        taskName_ = name;
        if (isWatched_) {
            emit NewToolTip();
        }
    }
}

void StatusNotifierItem::setIcon(const StatusIconState& icon) {
    if (icon_ == icon) {
        return;
    }
    const bool isDotNew = icon_.hasDot != icon.hasDot;
    icon_ = icon;
    pixmap_ = pixmaps(icon);
    if (isWatched_) {
        emit NewIcon();
        if (isDotNew || icon.hasDot) {
            emit NewAttentionIcon();
        }
        if (isDotNew) {
            emit NewStatus(status());
        }
    }
}

QString StatusNotifierItem::category() const {
    return QStringLiteral("ApplicationStatus");
}

QString StatusNotifierItem::id() const {
    return QLatin1String(kApplicationId);
}

// Of the program, which stays: panels read it as the item's name. The text that changes is the
// label and the tool tip, since each signal and the question that follows it cost time each second.
QString StatusNotifierItem::name() const {
    return QStringLiteral("Hearthmark");
}

QString StatusNotifierItem::status() const {
    return icon_.hasDot ? QStringLiteral("NeedsAttention") : QStringLiteral("Active");
}

// The same picture, for panels that do not look at the status; absent while it is not shown, since
// some panels read every property each second.
QList<StatusPixmap> StatusNotifierItem::attentionPixmap() const {
    return icon_.hasDot ? pixmap_ : QList<StatusPixmap>();
}

// The picture is that of the desktop entry: one of ours would be sent with each second's text.
StatusToolTip StatusNotifierItem::toolTip() const {
    return {QLatin1String(kApplicationId), {}, title_.toHtmlEscaped(), markup(taskName_)};
}

QDBusObjectPath StatusNotifierItem::menuPath() const {
    return QDBusObjectPath(kMenuPath);
}

QString StatusNotifierItem::labelGuide() const {
    return widestForm(title_);
}

// The panel has its answer before anything is done that may take time.
void StatusNotifierItem::Activate(int /*x*/, int /*y*/) {
    QTimer::singleShot(0, this, [this] { act(handlers_.activate); });
}

void StatusNotifierItem::SecondaryActivate(int x, int y) {
    Activate(x, y);
}

// Panels show the menu themselves.
void StatusNotifierItem::ContextMenu(int /*x*/, int /*y*/) {}

void StatusNotifierItem::Scroll(int /*delta*/, const QString& /*orientation*/) {}

void StatusNotifierItem::ProvideXdgActivationToken(const QString& token) {
    endStartupSequence(token.toStdString());
    activationToken_ = token.toUtf8();
}

void StatusNotifierItem::act(const std::function<void()>& action) {
    // Where the toolkit's Wayland plugin looks for it when a window is activated.
    qputenv("XDG_ACTIVATION_TOKEN", std::exchange(activationToken_, {}));
    action();
    qunsetenv("XDG_ACTIVATION_TOKEN");  // it is not for what the program starts
}

void StatusNotifierItem::registerAtWatcher() {
    QDBusMessage call = QDBusMessage::createMethodCall(
        kWatcher, kWatcherPath, kWatcher, QStringLiteral("RegisterStatusNotifierItem"));
    call << bus_.baseService();
    call.setAutoStartService(false);
    whenAnswered<QDBusPendingReply<>>(bus_.asyncCall(call), this, [this](const auto& reply) {
        isWatched_ = !reply.isError();  // an error is the usual answer where there is no panel
        if (isWatched_) {
            askForHost();
        }
    });
}

void StatusNotifierItem::askForHost() {
    QDBusMessage call = QDBusMessage::createMethodCall(
        kWatcher, kWatcherPath, QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    call << QLatin1String(kWatcher) << QStringLiteral("IsStatusNotifierHostRegistered");
    call.setAutoStartService(false);
    using Answer = QDBusPendingReply<QDBusVariant>;
    whenAnswered<Answer>(bus_.asyncCall(call), this, [this](const Answer& reply) {
        setIsHosted(reply.isValid() && reply.value().variant().toBool());
    });
}

void StatusNotifierItem::setIsHosted(bool isHosted) {
    if (isHosted_ != isHosted) {
        isHosted_ = isHosted;
        handlers_.isHostedChanged();
    }
}

}  // namespace hearthmark::platform
