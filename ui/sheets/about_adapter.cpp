// SPDX-License-Identifier: MIT
#include "ui/sheets/about_adapter.h"

#include <QStringList>
#include <utility>

namespace hearthmark::ui {

AboutAdapter::AboutAdapter(Program program) : program_(std::move(program)) {}

QString AboutAdapter::libraries() const {
    return QStringList{QStringLiteral("Qt %1 (LGPL 3)").arg(QLatin1String(qVersion())),
                       QStringLiteral("SQLite (public domain)"),
                       QStringLiteral("SQLiteCpp (MIT)"),
                       QStringLiteral("Boost (Boost Software License)"),
                       QStringLiteral("ICU (Unicode License)"),
                       QStringLiteral("JSON for Modern C++ (MIT)"),
                       QStringLiteral("libsodium (ISC)"),
                       QStringLiteral("libcanberra (LGPL 2.1)"),
                       QStringLiteral("XCB (MIT)")}
        .join(QStringLiteral(", "));
}

void AboutAdapter::openStoreFolder() {
    fault_ = program_.openStoreFolder() ? QString() : tr("No program here opens folders.");
    emit faultChanged();
}

}  // namespace hearthmark::ui
