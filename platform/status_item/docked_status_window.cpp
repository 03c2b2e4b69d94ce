// SPDX-License-Identifier: MIT
#include "platform/status_item/docked_status_window.h"

#include <xcb/xcb.h>

#include <QFontMetrics>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QRasterWindow>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <utility>

#include "platform/desktop/x11.h"

namespace hearthmark::platform {

namespace {

constexpr int kHeight = 22;
constexpr int kPadding = 6;
constexpr int kGap = 3;
constexpr int kFontSize = 13;

constexpr uint32_t kRequestDock = 0;
constexpr std::array<uint32_t, 2> kEmbedding{0, 1};  // the protocol's version; to be mapped

int screenNumber() {
    char* host = nullptr;
    int display = 0;
    int screen = 0;
    if (xcb_parse_display(nullptr, &host, &display, &screen) == 0) {
        return 0;
    }
    std::free(host);  // NOLINT(*-no-malloc): allocated by xcb
    return screen;
}

}  // namespace

struct DockedStatusWindow::Atoms {
    xcb_atom_t manager = x11Atom("MANAGER");
    xcb_atom_t tray = x11Atom("_NET_SYSTEM_TRAY_S" + std::to_string(screenNumber()));
    xcb_atom_t opcode = x11Atom("_NET_SYSTEM_TRAY_OPCODE");
    xcb_atom_t embedding = x11Atom("_XEMBED_INFO");
};

// Paints itself in the room that the tray gives it.
class DockedStatusWindow::Window final : public QRasterWindow {
 public:
    explicit Window(const Handlers& handlers) : handlers_(handlers) {
        setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint |
                 Qt::WindowDoesNotAcceptFocus);
        QWindow::setTitle(QGuiApplication::applicationDisplayName());
        font_.setPixelSize(kFontSize);
        font_.setBold(true);
    }

    void setContent(const QString& title, const StatusIconState& icon) {
        if (title_ == title && icon_ == icon) {
            return;
        }
        title_ = title;
        if (icon_ != icon) {
            icon_ = icon;
            picture_ = {};
        }
        const int width = kHeight + 2 * kGap +
                          QFontMetrics(font_).horizontalAdvance(widestForm(title)) + kPadding;
        if (width != minimumWidth()) {
            setMinimumSize({width, kHeight});
            resize(width, std::max(kHeight, height()));
        }
        update();
    }

 protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const int side = std::min(height(), kHeight);
        const QRect plate(0, (height() - side) / 2, width(), side);
        // No rounded corners: a panel need not repaint what a corner uncovers.
        painter.fillRect(QRect(QPoint(), size()), kStatusGroundColor);
        painter.drawImage(plate.topLeft() + QPoint(kGap, 0), picture(side));
        painter.setFont(font_);
        painter.setPen(kStatusTextColor);
        painter.drawText(plate.adjusted(side + 2 * kGap, 0, -kPadding, 0),
                         Qt::AlignLeft | Qt::AlignVCenter, title_);
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) {
            handlers_.activate();
        } else if (event->button() == Qt::RightButton) {
            handlers_.showMenu(event->globalPosition().toPoint());
        }
    }

 private:
    const QImage& picture(int side) {
        if (const int pixels = qRound(side * devicePixelRatio()); picture_.width() != pixels) {
            picture_ = paintStatusIcon(icon_, pixels);
            picture_.setDevicePixelRatio(devicePixelRatio());
        }
        return picture_;
    }

    const Handlers& handlers_;
    QFont font_ = QGuiApplication::font();
    QString title_;
    StatusIconState icon_;
    QImage picture_;
};

bool DockedStatusWindow::isPossible() {
    return x11Connection() != nullptr;
}

DockedStatusWindow::DockedStatusWindow(Handlers handlers)
    : handlers_(std::move(handlers)), atoms_(std::make_unique<Atoms>()) {
    qGuiApp->installNativeEventFilter(this);
    dock();
}

DockedStatusWindow::~DockedStatusWindow() {
    qGuiApp->removeNativeEventFilter(this);
}

void DockedStatusWindow::setContent(const QString& title, const StatusIconState& icon) {
    title_ = title;
    icon_ = icon;
    if (window_) {
        window_->setContent(title_, icon_);
    }
}

// The window appears when the tray has taken it, never by itself on the screen.
void DockedStatusWindow::dock() {
    const X11Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        x11Connection(), xcb_get_selection_owner(x11Connection(), atoms_->tray), nullptr));
    if (!owner || owner->owner == XCB_WINDOW_NONE) {
        return;  // the tray makes itself known when it starts
    }
    window_ = std::make_unique<Window>(handlers_);
    window_->setContent(title_, icon_);
    window_->create();
    windowId_ = static_cast<xcb_window_t>(window_->winId());
    xcb_change_property(x11Connection(), XCB_PROP_MODE_REPLACE, windowId_, atoms_->embedding,
                        atoms_->embedding, 32, kEmbedding.size(), kEmbedding.data());
    xcb_client_message_event_t request{};
    request.response_type = XCB_CLIENT_MESSAGE;
    request.format = 32;
    request.window = owner->owner;
    request.type = atoms_->opcode;
    request.data.data32[0] = XCB_CURRENT_TIME;
    request.data.data32[1] = kRequestDock;
    request.data.data32[2] = windowId_;
    xcb_send_event(x11Connection(), 0, owner->owner, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&request));
    xcb_flush(x11Connection());
}

void DockedStatusWindow::reparented(quint32 parent) {
    const xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(x11Connection()));
    for (xcb_screen_iterator_t screen = screens; screen.rem > 0; xcb_screen_next(&screen)) {
        if (screen.data->root == parent) {
            // The server saved the window of a tray that has gone.
            undockSoon();
            return;
        }
    }
    // At once: the toolkit has to show it before it hears that the tray has mapped it.
    window_->setVisible(true);
    isDocked_ = true;
}

// Not while the toolkit handles an event of the window.
void DockedStatusWindow::undockSoon() {
    QTimer::singleShot(0, this, [this, gone = window_.get()] {
        if (window_.get() == gone) {
            undock();
        }
    });
}

// Looks for another tray at once: it may have come before the old one was seen to go.
void DockedStatusWindow::undock() {
    window_.reset();
    isDocked_ = false;
    dock();
}

bool DockedStatusWindow::nativeEventFilter(const QByteArray& /*eventType*/, void* message,
                                           qintptr* /*result*/) {
    const auto* const event = static_cast<const xcb_generic_event_t*>(message);
    const auto ours = [this](xcb_window_t window) { return window_ && windowId_ == window; };
    switch (event->response_type & 0x7F) {
        case XCB_CLIENT_MESSAGE: {
            const auto* const told = reinterpret_cast<const xcb_client_message_event_t*>(event);
            if (told->type == atoms_->manager && told->data.data32[1] == atoms_->tray) {
                undockSoon();
            }
            break;
        }
        case XCB_REPARENT_NOTIFY: {
            const auto* const told = reinterpret_cast<const xcb_reparent_notify_event_t*>(event);
            if (ours(told->window)) {
                reparented(told->parent);
            }
            break;
        }
        case XCB_DESTROY_NOTIFY: {
            const auto* const told = reinterpret_cast<const xcb_destroy_notify_event_t*>(event);
            if (ours(told->window)) {
                undockSoon();
            }
            break;
        }
        default:
            break;
    }
    return false;
}

}  // namespace hearthmark::platform
