// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>
#include <memory>

#include "services/ports/start_at_login.h"
#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

// Hands to the menu whether the program starts at login.
class StartAtLoginAdapter final : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the home view factory")
    Q_PROPERTY(bool isOn READ isOn NOTIFY changed FINAL)
    Q_PROPERTY(bool canChange READ canChange NOTIFY changed FINAL)
    Q_PROPERTY(QString reason READ reason NOTIFY changed FINAL)

 public:
    explicit StartAtLoginAdapter(std::shared_ptr<services::StartAtLogin> startAtLogin);

    bool isOn() const { return state().isOn; }
    bool canChange() const { return state().unavailableReason.empty(); }
    // Why it cannot be changed, or could not just now; empty where nothing is known against it.
    QString reason() const;

    Q_INVOKABLE void refresh() { startAtLogin_->refresh(); }
    Q_INVOKABLE void toggle();

 signals:
    // The person asked for a change, and the reason says why there was none. From the event loop,
    // when the menu in which they asked has closed.
    void failed();

 private:
    const services::StartAtLoginState& state() const { return startAtLogin_->state().value(); }

    std::shared_ptr<services::StartAtLogin> startAtLogin_;
};

}  // namespace hearthmark::ui
