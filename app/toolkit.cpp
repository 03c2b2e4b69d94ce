// SPDX-License-Identifier: MIT
#include "app/toolkit.h"

#include <QFont>
#include <QLocale>
#include <QLoggingCategory>
#include <QQuickWindow>
#include <algorithm>

#include "platform/desktop/display.h"
#include "platform/desktop/reader_memory.h"
#include "platform/session/application_object.h"
#include "ui/window/accessibility.h"

namespace hearthmark::app {

namespace {

// The font of all texts was made before the Wayland client knew a screen, for one of other dots.
// And it is fitted to whole dots of a screen that the compositor does not scale: scaled, texts
// would lose their uppermost or lowest row.
void renewFont() {
    const QFont before = QGuiApplication::font();
    QFont font(before.family());
    font.fromString(before.toString());
    font.setHintingPreference(QFont::PreferNoHinting);
    QGuiApplication::setFont(font);
}

}  // namespace

ToolkitArguments::ToolkitArguments(int argc, char** argv)
    : platforms_(platform::isOnWayland() ? "wayland;xcb" : "xcb;wayland"),
      arguments_(argv, argv + argc) {
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
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        renewFont();
    }
    if (QLocale().textDirection() == Qt::RightToLeft) {
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    }
    ui::prepareAccessibility(&platform::keepFromReadersMemory);
}

ToolkitArguments& Toolkit::prepared() {
    // What others ask for in vain is no fault of this program. Told, it would fill the journal, and
    // where nobody reads it keep the window waiting.
    QLoggingCategory::setFilterRules(
        QStringLiteral("qt.accessibility.atspi.warning=false\nqt.dbus.integration.warning=false"));
    // A few words are repainted each second: the software scene graph takes less than half the
    // memory.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication::setApplicationName(QStringLiteral("Hearthmark"));
    QGuiApplication::setApplicationVersion(QStringLiteral(HEARTHMARK_VERSION));
    QGuiApplication::setDesktopFileName(QLatin1String(platform::kApplicationId));
    return arguments_;
}

}  // namespace hearthmark::app
