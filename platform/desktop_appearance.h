// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QVariant>
#include <memory>

#include "services/appearance.h"

namespace hearthmark::platform {

// Follows the desktop's settings portal; where it says nothing of light and dark, the toolkit's
// palette. Main thread; requires a QGuiApplication that outlives it.
class DesktopAppearance final : public QObject {
    Q_OBJECT

 public:
    explicit DesktopAppearance(std::shared_ptr<services::AppearancePreference> preference);

 private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

 private:
    void readAll();
    void take(const QString& group, const QString& key, const QVariant& value);
    void publish();

    std::shared_ptr<services::AppearancePreference> preference_;
    QDBusConnection bus_;
    // 1 for dark and 2 for light; anything else for no preference.
    uint colorScheme_ = 0;
    // 1 for less; anything else for no preference.
    uint reducedMotion_ = 0;
    bool animationsEnabled_ = true;
};

}  // namespace hearthmark::platform
