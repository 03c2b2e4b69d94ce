// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QGuiApplication>
#include <memory>

#include "services/ports/appearance.h"
#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

// Hands what the desktop prefers to the window, which sets the theme by it.
class AppearanceAdapter final : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the home view factory")
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed FINAL)
    Q_PROPERTY(bool isStill READ isStill NOTIFY changed FINAL)
    Q_PROPERTY(bool isRightToLeft READ isRightToLeft CONSTANT FINAL)

 public:
    explicit AppearanceAdapter(std::shared_ptr<services::AppearancePreference> preference)
        : preference_(std::move(preference)) {
        follow(*preference_);
    }

    bool isDark() const { return preference_->value().isDark; }
    bool isStill() const { return preference_->value().isStill; }
    bool isRightToLeft() const { return QGuiApplication::isRightToLeft(); }

 private:
    std::shared_ptr<services::AppearancePreference> preference_;
};

}  // namespace hearthmark::ui
