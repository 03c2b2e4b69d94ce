// SPDX-License-Identifier: MIT
#include "previews/stage.h"

#include <QFont>
#include <QGuiApplication>
#include <QKeySequence>
#include <QProcessEnvironment>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QStyleHints>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <map>
#include <utility>

#include "app/home_view_factory.h"
#include "objectstore/persistent_container.h"
#include "previews/fakes.h"
#include "store/data_operations_service.h"
#include "store/demo_persistent_container_factory.h"
#include "store/hearthmark_model.h"
#include "store/note.h"
#include "ui/window/home_adapter.h"
#include "ui/window/symbol_provider.h"

namespace hearthmark::previews {

namespace {

constexpr qint64 kStepMilliseconds = 100;
// Longer than any animation of the views that ends.
constexpr int kSteps = 10;
constexpr int kManyTasks = 40;

void addTask(const QString& name, base::Date now, objectstore::ManagedObjectContext& context,
             const QString& note = {}) {
    const auto task = context.insert<store::Task>();
    task->setId(base::Uuid::random());
    task->setCreationDate(now);
    task->setName(name.toStdString());
    task->addNotesObject(
        *store::Note::create({.creationDate = now,
                              .id = base::Uuid::random(),
                              .text = (note.isEmpty() ? name : note).toStdString()},
                             context));
}

std::shared_ptr<objectstore::PersistentContainer> makeContainer(Content content, base::Date now) {
    if (content == Content::noTasks) {
        auto container = std::make_shared<objectstore::PersistentContainer>(
            "Empty", store::hearthmarkModel(), std::nullopt);
        container->loadPersistentStores();
        return container;
    }
    auto container = store::DemoPersistentContainerFactory(now).makeContainer();
    if (content == Content::longTexts) {
        addTask(longWord(), now, container->viewContext());
    }
    if (content == Content::longNote) {
        addTask(kLongNote, now, container->viewContext(), QStringLiteral("A line\n").repeated(600));
    }
    for (int number = 1; content == Content::manyTasks && number <= kManyTasks; ++number) {
        addTask(QStringLiteral("Chapter %1").arg(number), now, container->viewContext());
    }
    container->viewContext().save();
    return container;
}

// Three days of backups, of which the oldest is damaged, beside a store that has changed since.
std::shared_ptr<const store::StoreBackups> makeBackups(const std::filesystem::path& directory) {
    const auto container = std::make_shared<objectstore::PersistentContainer>(
        "Hearthmark", store::hearthmarkModel(), directory);
    container->loadPersistentStores();
    objectstore::ManagedObjectContext& context = container->viewContext();
    std::shared_ptr<const store::StoreBackups> backups;
    for (const int ago : {4, 1, 0}) {
        const auto clock = std::make_shared<StoppedClock>(std::chrono::days(ago));
        addTask(QStringLiteral("A task"), clock->now(), context);
        context.save();
        backups = std::make_shared<store::StoreBackups>(directory, clock,
                                                        std::make_shared<base::LocalCalendar>());
        backups->keepDaily();
    }
    std::filesystem::resize_file(backups->all().back().file, 100);
    context.remove(*context.objects<store::Task>().begin());
    context.save();
    return backups;
}

// Null where there is none.
QQuickItem* taskRowNamed(const QString& name, const QQuickItem& in) {
    for (QQuickItem* item : in.childItems()) {
        if (item->property("isTask").toBool() && item->property("text") == name) {
            return item;
        }
        if (QQuickItem* found = taskRowNamed(name, *item)) {
            return found;
        }
    }
    return nullptr;
}

void clickTask(const QString& name, QQuickWindow& window) {
    const QQuickItem* row = taskRowNamed(name, *window.contentItem());
    if (row == nullptr) {
        qFatal("There is no task %s in sight", qUtf8Printable(name));
    }
    // Where nothing is that a click would use.
    const QPointF place = row->mapToScene({row->width() / 2, row->height() / 4});
    QTest::mouseClick(&window, Qt::LeftButton, {}, place.toPoint());
}

void press(const QStringList& keys, QQuickWindow& window) {
    for (const QString& key : keys) {
        const QKeyCombination combination = QKeySequence(key)[0];
        QTest::keyClick(&window, combination.key(), combination.keyboardModifiers());
    }
}

void openMenuItem(const QString& name, QQuickWindow& window) {
    press({"Shift+Tab", "Space"}, window);
    constexpr int kMostItems = 50;
    for (int item = 0; window.activeFocusItem()->property("text") != name; ++item) {
        if (item == kMostItems) {
            qFatal("There is no menu item %s", qUtf8Printable(name));
        }
        press({"Down"}, window);
    }
    press({"Return"}, window);
}

void act(QQuickWindow& window, const Preview& preview) {
    if (!preview.selection.isEmpty()) {
        clickTask(preview.selection, window);
    }
    if (!preview.menuItem.isEmpty()) {
        openMenuItem(preview.menuItem, window);
    }
    press(preview.keys, window);
    for (const QChar each : preview.typed) {
        QTest::keyClick(&window, each.toLatin1());
    }
}

}  // namespace

void prepareEnvironment() {
    for (const QString& name : QProcessEnvironment::systemEnvironment().keys()) {
        if (name.startsWith(QLatin1String("QT_")) || name.startsWith(QLatin1String("QSG_"))) {
            qunsetenv(qPrintable(name));
        }
    }
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" HEARTHMARK_PREVIEW_SCREENS);
    qputenv("FONTCONFIG_FILE", HEARTHMARK_PREVIEW_FONTS);
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("TZ", "UTC");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

Stage::Stage() {
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    animations_.install();
}

void Stage::Animations::proceed() {
    milliseconds_ += kStepMilliseconds;
    advance();
}

QImage Stage::picture(const Preview& preview) {
    QGuiApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), preview.textSize));
    QGuiApplication::setLayoutDirection(preview.direction);
    return preview.content < Content::addTask ? pictureOfHome(preview) : pictureOfPart(preview);
}

QImage Stage::pictureOfHome(const Preview& preview) {
    const auto clock = std::make_shared<StoppedClock>();
    const auto container = makeContainer(preview.content, clock->now());
    const auto liveDataFactory = std::make_shared<store::LiveDataProvidingFactory>(container);
    const auto service = std::make_shared<store::DataOperationsService>(
        *liveDataFactory, container, clock, base::FatalErrorHandler());
    const auto unseenFinishes = std::make_shared<services::UnseenFinishes>();
    std::vector<services::NotificationContent> finishes;
    for (const std::string& name : preview.unseenFinishes) {
        finishes.push_back({.title = name, .body = "Interval finished", .taskId = base::Uuid()});
    }
    unseenFinishes->setValue(std::move(finishes));
    const auto updater = std::make_shared<FakeUpdater>();
    const auto appearance = std::make_shared<services::AppearancePreference>(
        services::Appearance{.isDark = preview.palette == Palette::dark});
    const QTemporaryDir directory;
    const auto backups = preview.hasBackups ? makeBackups(directory.path().toStdString())
                                            : std::make_shared<const store::StoreBackups>(
                                                  directory.path().toStdString(), clock,
                                                  std::make_shared<base::LocalCalendar>());
    const auto view =
        app::HomeViewFactory(
            {service,
             std::make_shared<store::UndoHistory>(service),
             liveDataFactory,
             clock,
             std::make_shared<presentation::SelectedTaskId>(std::nullopt),
             std::make_shared<presentation::NoteDrafts>(service, *liveDataFactory),
             std::make_shared<StoppedTimeKeepingProvider>(),
             std::make_shared<ui::MainWindowLoader>(),
             {.clipboard = nullptr,
              .updater = updater,
              .startAtLogin = std::make_shared<FakeStartAtLogin>(),
              .unseenFinishes = unseenFinishes,
              .appearance = appearance,
              .calendar = std::make_shared<base::LocalCalendar>(),
              .backups = backups,
              .files = {.fileChooser = std::make_shared<FakeFileChooser>(),
                        .backgroundWork = std::make_shared<FakeBackgroundWork>(),
                        .home = "/home/you"}},
             {.version = "0.1.0",
              .storeFolder = "/home/you/.local/share/Hearthmark",
              .openStoreFolder = [] { return true; }},
             {.windowShouldClose = [] { return true; }, .quit = [] {}, .restartRestored = [] {}}})
            .makeHomeView();
    // The only one there is.
    auto& window = dynamic_cast<QQuickWindow&>(*QGuiApplication::allWindows().constFirst());
    if (preview.layout == Layout::newHome) {
        return pictureOfPart(preview, QStringLiteral("home"),
                             *window.property("home").value<ui::HomeAdapter*>());
    }
    show(window, preview);
    updater->state().setValue(preview.update);
    if (preview.transfer.isPresented) {
        window.property("home")
            .value<ui::HomeAdapter*>()
            ->property("fileTransfer")
            .value<ui::FileTransferAdapter*>()
            ->viewModel()
            .viewState()
            .setValue(preview.transfer);
    }
    settle();
    return window.grabWindow();
}

QImage Stage::pictureOfPart(const Preview& preview) {
    const auto texts = exporting::FakeShareContainerVMFactory().makeViewModel();
    if (preview.content == Content::loadingShare) {
        texts->viewState().setValue(std::nullopt);
    }
    ui::AddTaskAdapter addTask(std::make_shared<presentation::FakeAddTaskViewModel>());
    ui::ShareContainerAdapter share(texts);
    ui::TaskListAdapter tasks(std::make_shared<LoadingTaskListViewModel>());
    const std::map<Content, std::pair<QString, QObject*>> adapters{
        {Content::addTask, {"addTask", &addTask}},
        {Content::share, {"share", &share}},
        {Content::loadingShare, {"share", &share}},
        {Content::loadingTasks, {"tasks", &tasks}}};
    const auto& [property, adapter] = adapters.at(preview.content);
    return pictureOfPart(preview, property, *adapter);
}

QImage Stage::pictureOfPart(const Preview& preview, const QString& property, QObject& adapter) {
    QQmlEngine engine;
    QQmlEngine::setObjectOwnership(&adapter, QQmlEngine::CppOwnership);
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine.addImageProvider(QStringLiteral("symbols"), new ui::SymbolProvider);
    QQmlComponent component(&engine, QUrl("qrc:/qt/qml/Hearthmark/Previews/PartWindow.qml"));
    const std::unique_ptr<QQuickWindow> window(qobject_cast<QQuickWindow*>(
        component.createWithInitialProperties({{"isDark", preview.palette == Palette::dark},
                                               {property, QVariant::fromValue(&adapter)}})));
    if (!window) {
        qFatal("A part cannot be shown: %s", qUtf8Printable(component.errorString()));
    }
    show(*window, preview);
    return window->grabWindow();
}

void Stage::show(QQuickWindow& window, const Preview& preview) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    QScreen* const screen = *std::find_if(
        screens.begin(), screens.end(),
        [&preview](const QScreen* each) { return each->devicePixelRatio() == preview.scale; });
    window.setScreen(screen);
    window.setGeometry(QRect(screen->geometry().topLeft(), preview.size));
    window.show();
    window.requestActivate();
    settle();
    act(window, preview);
    settle();
}

void Stage::settle() {
    for (int step = 0; step < kSteps; ++step) {
        QTest::qWait(1);
        animations_.proceed();
    }
}

}  // namespace hearthmark::previews
