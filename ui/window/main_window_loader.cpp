// SPDX-License-Identifier: MIT
#include "ui/window/main_window_loader.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>

#include "ui/window/home_adapter.h"
#include "ui/window/symbol_provider.h"

// Of the toolkit's library of that name.
void qml_register_types_QtQml_WorkerScript();  // NOLINT(readability-identifier-naming)

namespace hearthmark::ui {

namespace {

// Every window imports this module. From its plugin, which is what is used where its library is not
// linked, it would have to be initialised in our thread, and all loading would wait for that.
void linkModules() {
    const volatile auto registration = &qml_register_types_QtQml_WorkerScript;
    static_cast<void>(registration);
}

QUrl mainWindow() {
    return {QStringLiteral("qrc:/qt/qml/Hearthmark/Ui/MainWindow.qml")};
}

// The first line of text looks through all fonts there are. It does so here while the types still
// load.
void lookForFonts() {
    static_cast<void>(QFontMetricsF(QGuiApplication::font()).height());
}

}  // namespace

MainWindowLoader::MainWindowLoader() = default;

MainWindowLoader::~MainWindowLoader() = default;

void MainWindowLoader::begin() {
    if (engine_) {
        return;
    }
    linkModules();
    engine_ = std::make_unique<QQmlEngine>();
    engine_->addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine_->addImageProvider(QStringLiteral("symbols"), new SymbolProvider);
    loading_ =
        std::make_unique<QQmlComponent>(engine_.get(), mainWindow(), QQmlComponent::Asynchronous);
}

std::unique_ptr<QQuickWindow> MainWindowLoader::makeWindow(HomeAdapter& home) {
    begin();
    lookForFonts();
    QQmlEngine::setObjectOwnership(&home, QQmlEngine::CppOwnership);
    // One that is not asynchronous waits for what the other one has begun.
    QQmlComponent component(engine_.get(), mainWindow());
    std::unique_ptr<QQuickWindow> window;
    if (component.isReady()) {
        window.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
            {{QStringLiteral("home"), QVariant::fromValue(&home)}})));
    }
    if (!window) {
        qFatal("The main window cannot be made: %s", qUtf8Printable(component.errorString()));
    }
    return window;
}

}  // namespace hearthmark::ui
