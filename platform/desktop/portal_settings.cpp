// SPDX-License-Identifier: MIT
#include "platform/desktop/portal_settings.h"

#include <QStringList>

namespace hearthmark::platform {

namespace {

constexpr QLatin1String kAppearance("org.freedesktop.appearance");
// GNOME's own, which says it where the portal has no "reduced-motion" yet.
constexpr QLatin1String kGnomeInterface("org.gnome.desktop.interface");
constexpr uint kDark = 1;
constexpr uint kLight = 2;
constexpr uint kReducedMotion = 1;

}  // namespace

QStringList PortalSettings::groups() {
    return {kAppearance, kGnomeInterface};
}

void PortalSettings::take(const QString& group, const QString& key, const QVariant& value) {
    if (group == kAppearance && key == QLatin1String("color-scheme")) {
        colorScheme_ = value.toUInt();
    } else if (group == kAppearance && key == QLatin1String("reduced-motion")) {
        reducedMotion_ = value.toUInt();
    } else if (group == kGnomeInterface && key == QLatin1String("enable-animations")) {
        areAnimationsEnabled_ = value.toBool();
    }
}

services::Appearance PortalSettings::appearance(bool isPaletteDark) const {
    const bool isKnown = colorScheme_ == kDark || colorScheme_ == kLight;
    return {.isDark = isKnown ? colorScheme_ == kDark : isPaletteDark,
            .isStill = reducedMotion_ == kReducedMotion || !areAnimationsEnabled_};
}

}  // namespace hearthmark::platform
