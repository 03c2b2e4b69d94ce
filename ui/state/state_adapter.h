// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>
#include <utility>

#include "livedata/subscription.h"

namespace hearthmark::ui {

// Answers whether that is another value than is shown.
template <class Value>
[[nodiscard]] bool replace(Value& shown, Value next) {
    return std::exchange(shown, std::move(next)) != shown;
}

// What hands a state, of a view model or of a service, to a view. It follows the state only while
// the window is shown, since some change each second. The window is at first.
// Deriving from it names it in full, else the QML tools of Qt 6.4 do not find it.
class StateAdapter : public QObject {
    Q_OBJECT
    QML_ANONYMOUS

 public:
    virtual void setShown(bool isShown) {
        isShown_ = isShown;
        if (isShown) {
            show();
        }
    }

 signals:
    void changed();

 protected:
    // Called by constructors, last: from now on `show` may be called.
    template <class State>
    void follow(State& state) {
        subscription_ = state.subscribeDidChange([this] {
            if (isShown_) {
                show();
            }
        });
    }
    // Hands over the state that is current.
    virtual void show() { emit changed(); }

    bool isShown() const { return isShown_; }

 private:
    bool isShown_ = true;
    livedata::Subscription subscription_;
};

}  // namespace hearthmark::ui
