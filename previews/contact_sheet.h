// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>
#include <utility>
#include <vector>

namespace hearthmark::previews {

// All pictures on one, scaled down, each with its name under it.
QImage contactSheet(const std::vector<std::pair<QString, QImage>>& pictures);

}  // namespace hearthmark::previews
