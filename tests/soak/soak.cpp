// SPDX-License-Identifier: MIT
//
// Lives hours of use as fast as it can, with the real store and window and a driven clock, then
// three times as long with one interval running, and compares what that took with a fresh process
// on the same store: this program again, with the directory and the time. HEARTHMARK_SOAK_HOURS
// sets how long.
#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QProcess>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTest>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>

#include "app/tasks_app.h"
#include "platform/desktop/system_clipboard.h"
#include "platform/session/autostart_entry.h"
#include "platform/updates/appcast_updater.h"
#include "store/persistent_container_factory.h"
#include "support/test_store.h"
#include "ui/window/home_adapter.h"

namespace {

std::atomic<std::int64_t> liveAllocations = 0;

}  // namespace

// A subscription, a timer or an adapter that stays is some of these. The toolkit's are counted too.
// Not inlined, else GCC takes what one of them calls for the wrong partner of the other.
// NOLINTBEGIN(cppcoreguidelines-no-malloc, misc-new-delete-overloads)
[[gnu::noinline]] void* operator new(std::size_t size) {
    ++liveAllocations;
    void* const memory = std::malloc(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
    liveAllocations -= memory != nullptr ? 1 : 0;
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}
// NOLINTEND(cppcoreguidelines-no-malloc, misc-new-delete-overloads)

namespace hearthmark::tests {

namespace {

constexpr int kHour = 3600;
constexpr int kTasks = 8;
// By then all has been done and shown at least twice; what a fresh process uses before it is
// compared.
constexpr int kWarmUp = 120;
// Turns of the event loop within which a change has been drawn.
constexpr int kTurns = 10;

// In milliseconds: until animations, which go by the wall clock, have ended.
constexpr int kRest = 1000;
// And until what newer toolkits collect is deleted.
constexpr int kDeletion = 50;

struct Figures {
    std::int64_t pss = 0;  // in KB
    std::int64_t allocations = 0;
    std::int64_t files = 0;
    std::int64_t timers = 0;
};

std::ostream& operator<<(std::ostream& out, const Figures& figures) {
    return out << figures.pss << " KB, " << figures.allocations << " allocations, " << figures.files
               << " files, " << figures.timers << " timers";
}

// Reads what that wrote.
std::istream& operator>>(std::istream& in, Figures& figures) {
    std::string unit;
    return in >> figures.pss >> unit >> figures.allocations >> unit >> figures.files >> unit >>
           figures.timers;
}

struct NeverAsleep final : services::SleepMonitor {
    void start(Handlers /*handlers*/) override {}
};

// The application on a store of its own, and a person who uses its window.
class Program {
 public:
    Program(const std::filesystem::path& directory, double second) : app_(environment(directory)) {
        clock_->time = at(second);
        app_.launch({});
        window_ = qobject_cast<QQuickWindow*>(QGuiApplication::allWindows().constFirst());
        home_ = window_->property("home").value<ui::HomeAdapter*>();
        QObject::connect(window_, &QQuickWindow::frameSwapped, window_, [this] { ++frames_; });
    }

    double second() const { return clock_->time.sinceReferenceDate().count(); }
    int frames() const { return frames_; }

    // An interval in each two seconds, and all else in each minute. At the end nothing runs.
    void use(int seconds) {
        select(0);
        for (int each = 1; each <= seconds; ++each) {
            if (each % 2 == 1) {
                press(Qt::Key_1);
            } else {
                press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
            }
            if (each % 10 == 0) {
                press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
                type("A note");
            }
            act(each % 60);
            pass();
            if (each % 60 == 0) {
                select(each / 60);
            }
        }
    }

    // One interval runs, an hour long and then the next; nobody does anything else. In the end
    // another task is shown: rows of intervals that took their length are lower, without a button,
    // and more of them are in sight the longer this was.
    void idle(int seconds) {
        for (int each = 0; each < seconds; ++each) {
            if (home_->taskDetail()->canStartFocus()) {
                press(Qt::Key_2);
            }
            pass();
        }
        select(4);
    }

    Figures figures() const {
        QTest::qWait(kRest);
        qmlEngine(window_)->collectGarbage();
        QTest::qWait(kDeletion);
        ::malloc_trim(0);
        Figures figures{.allocations = liveAllocations, .timers = timers_->validTimers()};
        figures.files = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
        std::ifstream rollup("/proc/self/smaps_rollup");
        for (std::string word; word != "Pss:" && rollup >> word;) {
        }
        rollup >> figures.pss;
        return figures;
    }

 private:
    // Below both headers and the hint that nothing runs.
    static constexpr int kFirstTaskRow = 3;

    app::TasksApp::Environment environment(const std::filesystem::path& directory) const {
        return {.firstWindow = app::TasksApp::FirstWindow::atOnce,
                .persistentContainerFactory = std::make_unique<store::PersistentContainerFactory>(
                    directory, base::FatalErrorHandler()),
                .timeKeepingProvider = timers_,
                .clock = clock_,
                .sleepMonitor = std::make_shared<NeverAsleep>(),
                .uptime = [] { return services::Uptime{}; },
                .notificationCenter = notifications_,
                .statusBarPorts = {.statusBar = std::make_shared<FakeStatusBar>(),
                                   .applicationWindows = nullptr},
                .homeViewPorts = {.clipboard = std::make_shared<platform::SystemClipboard>(),
                                  .updater = std::make_shared<platform::AppcastUpdater>(
                                      platform::AppcastUpdater::Configuration{}),
                                  .startAtLogin = std::make_shared<platform::AutostartEntry>(),
                                  .unseenFinishes = std::make_shared<services::UnseenFinishes>(),
                                  .appearance = std::make_shared<services::AppearancePreference>(),
                                  .calendar = std::make_shared<base::LocalCalendar>(),
                                  .backups = nullptr,
                                  .files = {}},
                .program = {},
                .fatal = base::FatalErrorHandler(),
                .quit = [] {},
                .restartRestored = [] {},
                .mayHide = [] { return true; },
                .didHide = [] {}};
    }

    // Requires that nothing runs.
    void act(int secondOfMinute) {
        if (secondOfMinute == 2) {
            press(Qt::Key_F);
            type("note");
            press(Qt::Key_Escape, Qt::NoModifier);
        } else if (secondOfMinute == 12) {
            press(Qt::Key_E);
            home_->taskDetail()->share()->copy(ui::ShareContainerAdapter::Csv);
            press(Qt::Key_Escape, Qt::NoModifier);
        } else if (secondOfMinute == 22) {
            home_->taskDetail()->rows()->deleteRow(0);
            press(Qt::Key_Z);
        } else if (secondOfMinute == 32) {
            home_->taskDetail()->rows()->deleteRow(0);  // and not taken back
        } else if (secondOfMinute == 42) {
            press(Qt::Key_N);
            type("A task");
            home_->taskList()->rows()->deleteRow(kFirstTaskRow);
        } else if (secondOfMinute == 52) {
            window_->close();
            app_.activate({});
        }
    }

    // Counts the tasks from the top.
    void select(int number) const {
        see([&] { home_->taskList()->rows()->tap(kFirstTaskRow + number % kTasks); });
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) const {
        see([&] { QTest::keyClick(window_, key, modifiers); });
    }

    void type(const char* text) const {
        for (; *text != 0; ++text) {
            QTest::keyClick(window_, *text);
        }
        press(Qt::Key_Return);
    }

    void pass() {
        clock_->time = clock_->time + base::Seconds(1);
        see([this] {
            for (const auto& timer : std::vector(timers_->timers)) {
                if (timer->isValid && std::fmod(second(), timer->interval.count()) == 0) {
                    timer->isValid = timer->repeats == services::Repeats::yes;
                    timer->action();
                }
            }
        });
        std::erase_if(timers_->timers, [](const auto& timer) { return !timer->isValid; });
        notifications_->added.clear();
    }

    // Does what may change the window, and lets that be drawn.
    void see(const std::function<void()>& action) const {
        const int before = frames_;
        action();
        for (int turn = 0; turn < kTurns && frames_ == before; ++turn) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    std::shared_ptr<FakeClock> clock_ = std::make_shared<FakeClock>();
    std::shared_ptr<FakeTimeKeepingProvider> timers_ = std::make_shared<FakeTimeKeepingProvider>();
    std::shared_ptr<FakeNotificationCenter> notifications_ =
        std::make_shared<FakeNotificationCenter>();
    app::TasksApp app_;
    QQuickWindow* window_ = nullptr;
    ui::HomeAdapter* home_ = nullptr;
    int frames_ = 0;
};

// What the caches of the toolkit and the steps that can be undone differ by, up to 170, and for
// each hour of use the blocks of objects that the store got meanwhile and that hold deleted ones,
// too. One connection that stayed in each minute of use would be 120 an hour more.
constexpr int moreAllocations(int seconds) {
    return 170 + 140 * seconds / kHour;
}

// Prints its figures and waits, since pages that several processes share count in part for each.
void runFresh(const std::filesystem::path& directory, double second) {
    Program program(directory, second);
    program.use(kWarmUp);
    program.idle(kWarmUp);
    std::cout << program.figures() << std::endl;
    std::cin.get();
}

TEST(Soak, GrowsNoMoreThanAFreshProcess) {
    const char* const hours = std::getenv("HEARTHMARK_SOAK_HOURS");
    const int seconds = kHour * (hours != nullptr ? std::stoi(hours) : 1);
    TestStore store;
    for (int task = 0; task < kTasks; ++task) {
        store.addTask("A task", at(task));
    }
    store.close();
    const TemporaryDirectory copy;
    Program program(store.directory.path, 800'000'000);
    program.use(seconds - kWarmUp);
    std::filesystem::copy(store.directory.path, copy.path);
    const QString now = QString::number(program.second(), 'f', 0);
    program.use(kWarmUp);
    program.idle(kWarmUp + 3 * seconds);
    Figures old = program.figures();
    EXPECT_GT(program.frames(), 4 * seconds);
    EXPECT_EQ(store.sql("SELECT visited FROM RawIntervalState ORDER BY pk DESC LIMIT 1"),
              QString::number(std::floor(program.second() / 60) * 60, 'f', 1).toStdString())
        << "a crash would lose more than the last minute";

    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {QString::fromStdString(copy.path), now});
    ASSERT_TRUE(process.waitForReadyRead(-1));
    old.pss = program.figures().pss;
    Figures fresh;
    std::istringstream(process.readLine().toStdString()) >> fresh;
    process.closeWriteChannel();
    process.waitForFinished();
    std::cout << "after all use: " << old << "\na fresh process: " << fresh << std::endl;
    EXPECT_LE(old.pss, fresh.pss + 2048);
    EXPECT_LE(old.allocations, fresh.allocations + moreAllocations(seconds));
    EXPECT_LE(old.files, fresh.files);
    EXPECT_LE(old.timers, fresh.timers);
}

}  // namespace

}  // namespace hearthmark::tests

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
    testing::InitGoogleTest(&argc, argv);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    if (argc == 3) {
        hearthmark::tests::runFresh(argv[1], std::stod(argv[2]));
        return EXIT_SUCCESS;
    }
    if (::access("/dev/shm", W_OK) == 0) {
        qputenv("TMPDIR", "/dev/shm");  // where a sync costs nothing
    }
    return RUN_ALL_TESTS();
}
