// SPDX-License-Identifier: MIT
#include "app/toolkit.h"

#include <QFont>
#include <QLocale>
#include <QLoggingCategory>
#include <QOpenGLContext>
#include <QQuickWindow>
#include <algorithm>

#include "platform/desktop/reader_memory.h"
#include "platform/session/application_object.h"
#include "ui/window/accessibility.h"

namespace hearthmark::app {

namespace {

// What others ask for in vain is no fault of this program. Told, it would fill the journal, and
// where nobody reads it keep the window waiting.
constexpr auto kQuiet = "qt.accessibility.atspi.warning=false\nqt.dbus.integration.warning=false\n";

// The Wayland client looks for what draws by a graphics card when it is asked for the first time
// whether there is such a thing. It is not used, and takes half as much memory again as all of this
// program.
void settleWithoutGraphics() {
    QLoggingCategory::setFilterRules(QLatin1String(kQuiet) +
                                     QLatin1String("qt.qpa.wayland.warning=false"));
    QOpenGLContext().create();
    QLoggingCategory::setFilterRules(QLatin1String(kQuiet));
}

// The font of all texts was made before the Wayland client knew a screen, for one of other dots.
// And it is fitted to whole dots of a screen that the compositor does not scale: scaled, texts
// would lose their uppermost or lowest row.
void renewFont() {
    const QFont before = QGuiApplication::font();
    QFont font(before.families());
    font.setPointSizeF(before.pointSizeF());
    font.setHintingPreference(QFont::PreferNoHinting);
    QGuiApplication::setFont(font);
}

}  // namespace

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
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        settleWithoutGraphics();
        renewFont();
    }
    withoutGraphics_.reset();
    if (QLocale().textDirection() == Qt::RightToLeft) {
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    }
    ui::prepareAccessibility(&platform::keepFromReadersMemory);
}

ToolkitArguments& Toolkit::prepared() {
    QLoggingCategory::setFilterRules(QLatin1String(kQuiet));
    // A few words are repainted each second: the software scene graph takes less than half the
    // memory.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication::setApplicationName(QStringLiteral("Hearthmark"));
    QGuiApplication::setApplicationVersion(QStringLiteral(HEARTHMARK_VERSION));
    QGuiApplication::setDesktopFileName(QLatin1String(platform::kApplicationId));
    return arguments_;
}

}  // namespace hearthmark::app
