// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QString>
#include <optional>
#include <string>

#include "services/ports/status_bar.h"

namespace hearthmark::platform {

// The item's own ground and the text on it, which read on panels of every colour.
inline const QColor kStatusGroundColor(0x2e, 0x24, 0x1d);
inline const QColor kStatusTextColor(Qt::white);

// What the status item's picture shows. Equal states are the same picture, which changes about once
// a minute: panels flicker when they are sent a new one each second.
struct StatusIconState {
    // How fine the ring is.
    static constexpr int kRingSteps = 24;

    // One or two characters: minutes, or hours as "2h". Empty for the program's mark.
    std::string text;
    // What is left of the limit, 0 to kRingSteps. Absent where there is no limit.
    std::optional<int> ringSteps;
    bool hasDot = false;

    bool operator==(const StatusIconState&) const = default;
};

// The time that is left, rounded up, or what was spent, rounded down, where there is no limit.
StatusIconState statusIconState(const std::optional<services::StatusItemProgress>& progress);

// A square of so many pixels. Reads on light and dark panels. Requires a QGuiApplication.
QImage paintStatusIcon(const StatusIconState& state, int size);

// The title with zeros for its digits: as wide as any title of its form, so that what stands beside
// it in the panel keeps still while time is counted.
QString widestForm(QString title);

// With an ellipsis for what is beyond that many characters.
QString shortened(QString text, int longest);

}  // namespace hearthmark::platform
