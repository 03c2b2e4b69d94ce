// SPDX-License-Identifier: MIT
#include "app/toolkit.h"

#include <QLocale>
#include <QLoggingCategory>
#include <QQuickWindow>
#include <algorithm>

#include "platform/desktop/reader_memory.h"
#include "platform/session/application_object.h"
#include "ui/window/accessibility.h"

namespace hearthmark::app {

ToolkitArguments::ToolkitArguments(int argc, char** argv) : arguments_(argv, argv + argc) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        arguments_.insert(arguments_.begin() + std::min(argc, 1),
                          {option_.data(), platforms_.data()});
    }
    count_ = static_cast<int>(arguments_.size());
    arguments_.push_back(nullptr);
}

Toolkit::Toolkit(int argc, char** argv)
    : arguments_(argc, argv), application_(prepared().count(), arguments_.data()) {
    withoutSharedPictures_.reset();
    if (QLocale().textDirection() == Qt::RightToLeft) {
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    }
    ui::prepareAccessibility(&platform::keepFromReadersMemory);
}

ToolkitArguments& Toolkit::prepared() {
    // What others ask for in vain is no fault of this program. Told, it would fill the journal, and
    // where nobody reads it keep the window waiting.
    QLoggingCategory::setFilterRules(
        QStringLiteral("qt.accessibility.atspi.warning=false\n"
                       "qt.dbus.integration.warning=false"));
    // A few words are repainted each second: the software scene graph takes less than half the
    // memory.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication::setApplicationName(QStringLiteral("Hearthmark"));
    QGuiApplication::setApplicationVersion(QStringLiteral(HEARTHMARK_VERSION));
    QGuiApplication::setDesktopFileName(QLatin1String(platform::kApplicationId));
    return arguments_;
}

}  // namespace hearthmark::app
