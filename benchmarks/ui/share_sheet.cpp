// SPDX-License-Identifier: MIT
//
// Opens the share sheet of a task in the program's window, scrolls through both of its texts, and
// prints for how long nothing moved.
#include "app/home_view_factory.h"
#include "benchmarks/sample_store.h"
#include "export/csv_task_share_serializer.h"
#include "export/json_share_serializer.h"
#include "platform/desktop/time_keeping_provider.h"
#include "platform/session/autostart_entry.h"
#include "platform/updates/appcast_updater.h"
#include "ui/window/home_adapter.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <random>

namespace hearthmark::benchmarks {

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;
using Times = std::vector<Milliseconds>;

constexpr std::size_t kOpenings = 5;
constexpr int kSettlingMilliseconds = 300;

void print(const std::string& name, Times times) {
    std::ranges::sort(times);
    std::cout << std::setw(36) << name << ": longest " << std::setw(6) << times.back().count()
              << " ms, median " << std::setw(6) << times[times.size() / 2].count() << " ms\n";
}

struct Response {
    Milliseconds toFrame{};
    Milliseconds standstill{};  // the longest turn of the event loop until then
};

Response responseTo(const std::function<void()>& cause, const QQuickWindow& window) {
    const QSignalSpy frames(&window, &QQuickWindow::frameSwapped);
    const auto begin = Clock::now();
    Response response;
    cause();
    while (frames.isEmpty()) {
        QCoreApplication::processEvents();
        const Milliseconds passed = Clock::now() - begin;
        response.standstill = std::max(response.standstill, passed - response.toFrame);
        response.toFrame = passed;
    }
    return response;
}

void measureOpening(QQuickWindow& window, const store::Task& task) {
    auto& detail = *window.property("home").value<ui::HomeAdapter*>()->taskDetail();
    Times serializing(kOpenings);
    Times standstills(kOpenings);
    Times differences(kOpenings);
    for (std::size_t each = 0; each < kOpenings; ++each) {
        QTest::keyClick(&window, Qt::Key_Escape);
        QTest::qWait(kSettlingMilliseconds);
        const auto begin = Clock::now();
        const std::string json = exporting::JSONShareSerializer().serialize(task);
        const std::string csv = exporting::CSVTaskShareSerializer().serialize(task);
        serializing[each] = Clock::now() - begin;
        standstills[each] = responseTo([&] { detail.displayShareSheet(); }, window).standstill;
        differences[each] = standstills[each] - serializing[each];
    }
    print("serialising alone", serializing);
    print("standstill until the sheet shows", standstills);
    print("the one less the other", differences);
}

void measureScrolling(QQuickWindow& window, const std::string& tab) {
    QQuickItem* text = window.activeFocusItem();  // or the line of it that is current
    while (!text->inherits("QQuickListView")) {
        text = text->parentItem();
    }
    std::minstd_rand dice;
    const auto jump = [&] {
        const double range = text->property("contentHeight").toDouble() - text->height();
        const double place = std::uniform_real_distribution(0.0, range)(dice);
        text->setProperty("contentY", text->property("originY").toDouble() + place);
    };
    const auto pageDown = [&] { QTest::keyClick(&window, Qt::Key_PageDown); };
    Times pages(100);
    std::ranges::generate(pages, [&] { return responseTo(pageDown, window).toFrame; });
    print(tab + ", a page down", pages);
    Times jumps(20);
    std::ranges::generate(jumps, [&] { return responseTo(jump, window).toFrame; });
    jumps.push_back(responseTo([&] { QTest::keyClick(&window, Qt::Key_End); }, window).toFrame);
    print(tab + ", a jump", jumps);
}

void measure(std::int64_t intervals, const std::string& name) {
    std::cout << intervals << " intervals, a name of " << name.size() << " bytes\n";
    const OpenedStore opened(singleTaskStore(intervals, name));
    const store::Task& task = newestTask(opened);
    const auto view =
        app::HomeViewFactory(
            {opened.service,
             std::make_shared<store::UndoHistory>(opened.service),
             opened.liveDataFactory,
             opened.clock,
             std::make_shared<presentation::SelectedTaskId>(task.id()),
             std::make_shared<presentation::NoteDrafts>(opened.service, *opened.liveDataFactory),
             std::make_shared<platform::TimeKeepingProvider>(),
             std::make_shared<ui::MainWindowLoader>(),
             {.clipboard = nullptr,
              .updater = std::make_shared<platform::AppcastUpdater>(
                  platform::AppcastUpdater::Configuration{}),
              .startAtLogin = std::make_shared<platform::AutostartEntry>(),
              .unseenFinishes = std::make_shared<services::UnseenFinishes>(),
              .appearance = std::make_shared<services::AppearancePreference>(),
              .calendar = std::make_shared<base::LocalCalendar>(),
              .backups = nullptr,
              .files = {}},
             {},
             {.windowShouldClose = [] { return true; }, .quit = [] {}, .restartRestored = [] {}}})
            .makeHomeView();
    view->show({});
    auto& window = dynamic_cast<QQuickWindow&>(*QGuiApplication::allWindows().constFirst());
    measureOpening(window, task);
    measureScrolling(window, "JSON");
    QTest::keyClick(&window, Qt::Key_Tab, Qt::ShiftModifier);
    QTest::keyClick(&window, Qt::Key_Right);
    QTest::keyClick(&window, Qt::Key_Tab);
    QTest::qWait(kSettlingMilliseconds);
    measureScrolling(window, "CSV");
}

}  // namespace

}  // namespace hearthmark::benchmarks

int main(int argc, char** argv) {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    std::cout << std::fixed << std::setprecision(1) << std::unitbuf;
    hearthmark::benchmarks::measure(100'000, "Read");
    hearthmark::benchmarks::measure(10, std::string(1'000'000, 'a'));
}
