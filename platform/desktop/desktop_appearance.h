// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <memory>

#include "platform/desktop/portal_settings.h"
#include "services/ports/appearance.h"

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
    void publish();

    std::shared_ptr<services::AppearancePreference> preference_;
    QDBusConnection bus_;
    PortalSettings settings_;
    // As the toolkit found the desktop; later it has colours of the program.
    const bool isPaletteDark_;
};

}  // namespace hearthmark::platform
