// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

#include "services/ports/appearance.h"

namespace hearthmark::platform {

// What the settings portal has said of how programs are to look. A value.
class PortalSettings {
 public:
    // The groups that are of interest.
    static QStringList groups();

    // Settings of no interest change nothing.
    void take(const QString& group, const QString& key, const QVariant& value);

    // By the toolkit's palette where there is no preference.
    services::Appearance appearance(bool isPaletteDark) const;

 private:
    // 1 for dark and 2 for light; anything else for no preference.
    uint colorScheme_ = 0;
    // 1 for less; anything else for no preference.
    uint reducedMotion_ = 0;
    bool areAnimationsEnabled_ = true;
};

}  // namespace hearthmark::platform
