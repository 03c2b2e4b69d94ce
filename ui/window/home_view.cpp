// SPDX-License-Identifier: MIT
#include "ui/window/home_view.h"

#include <QEvent>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "ui/window/main_window_loader.h"
#include "ui/window/window_icon.h"

namespace hearthmark::ui {

namespace {

// Of the highest that desktops give, in logical pixels.
constexpr int kTitleBarHeight = 40;

}  // namespace

HomeView::HomeView(std::unique_ptr<HomeAdapter> adapter, std::shared_ptr<MainWindowLoader> loader,
                   WindowShouldClose windowShouldClose, BringToFront bringToFront)
    : windowShouldClose_(std::move(windowShouldClose)),
      bringToFront_(std::move(bringToFront)),
      adapter_(std::move(adapter)),
      loader_(std::move(loader)),
      window_(loader_->makeWindow(*adapter_)) {
    // A panel takes the icon also from a window that it shows already.
    connect(
        window_.get(), &QQuickWindow::frameSwapped, this,
        [this] {
            QGuiApplication::setWindowIcon(windowIcon());
            firstFrameSettings_.reset();
        },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    connect(window_.get(), &QWindow::visibleChanged, this, &HomeView::setShown);
    QGuiApplication::instance()->installEventFilter(this);
}

HomeView::~HomeView() = default;

void HomeView::show(const std::string& activationToken) {
    // One that was maximised is put back by the window manager first.
    if (!window_->isVisible() && hiddenStates_ == Qt::WindowNoState) {
        fitIntoScreen();
    }
    bringToFront_(*window_, activationToken);
}

// Which may be another one than when it was hidden, or have another scale.
void HomeView::fitIntoScreen() {
    const QRect screen = window_->screen()->availableGeometry();
    const QMargins known = window_->frameMargins();
    // Not known before the window was there once.
    const QMargins frame = known.isNull() ? QMargins(0, kTitleBarHeight, 0, 0) : known;
    window_->resize(window_->size().boundedTo(screen.marginsRemoved(frame).size()));
    if (place_) {
        const QSize room = screen.size() - window_->frameGeometry().size();
        const QPoint last = screen.topLeft() + QPoint(room.width(), room.height());
        window_->setFramePosition({std::max(screen.left(), std::min(place_->x(), last.x())),
                                   std::max(screen.top(), std::min(place_->y(), last.y()))});
    }
}

// Also where somebody else shows or hides it.
void HomeView::setShown(bool isShown) {
    if (isShown && hiddenStates_ != Qt::WindowNoState) {
        // The window manager has put it back to where and as large as it was before; from there it
        // is to be maximised.
        window_->setPosition(window_->position());
        window_->setWindowStates(std::exchange(hiddenStates_, Qt::WindowNoState));
    }
    adapter_->setShown(isShown);
}

void HomeView::hide() {
    const bool isFree = window_->windowStates() == Qt::WindowNoState;
    place_ = isFree ? std::optional(window_->framePosition()) : std::nullopt;
    hiddenStates_ = window_->windowStates() & ~Qt::WindowMinimized;
    window_->setVisible(false);
    if (place_) {
        // Else the window manager looks for a place anew.
        window_->setFramePosition(*place_);
    }
}

void HomeView::minimize() {
    window_->setWindowStates(window_->windowStates() | Qt::WindowMinimized);
}

void HomeView::abandon() {
    adapter_->setShown(false);
}

void HomeView::displayAddSheet() {
    adapter_->displayAddSheet();
}

void HomeView::startShortFocus() {
    adapter_->startShortFocus();
}

void HomeView::requestAttention() {
    constexpr int kUntilItIsUsed = 0;
    window_->alert(kUntilItIsUsed);
}

bool HomeView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Quit) {
        // The toolkit closes all windows before it quits, and one that refuses cancels the quit.
        isQuitting_ = true;
    } else if (watched == window_.get() && event->type() == QEvent::Close && !isQuitting_ &&
               !windowShouldClose_()) {
        event->ignore();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace hearthmark::ui
