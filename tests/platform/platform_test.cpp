// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <memory>
#include <optional>

#include "platform/instance_lock.h"
#include "platform/portal_settings.h"
#include "platform/time_keeping_provider.h"
#include "support/test_store.h"

namespace hearthmark::platform {
namespace {

using namespace std::chrono_literals;

class TimeKeepingProviderTest : public testing::Test {
 protected:
    int argc = 0;
    QCoreApplication application{argc, nullptr};
    TimeKeepingProvider provider;
    QEventLoop loop;
};

TEST_F(TimeKeepingProviderTest, FiresFirstAfterOneIntervalAndThenAtEach) {
    QElapsedTimer elapsed;
    std::vector<qint64> firings;
    elapsed.start();
    // The handle is dropped at once: the timer goes on.
    provider.makeTimer(20ms, services::Repeats::yes, [&] {
        firings.push_back(elapsed.elapsed());
        if (firings.size() == 3) {
            loop.quit();
        }
    });
    EXPECT_TRUE(firings.empty());
    loop.exec();
    EXPECT_GE(firings[0], 19);
    EXPECT_GE(firings[2], 59);
}

TEST_F(TimeKeepingProviderTest, StopsForGoodAlsoFromItsOwnAction) {
    int stopped = 0;
    int once = 0;
    std::shared_ptr<services::TimeKeeping> timer;
    timer = provider.makeTimer(1ms, services::Repeats::yes, [&] {
        ++stopped;
        timer->invalidate();
        timer->invalidate();
    });
    const auto single = provider.makeTimer(1ms, services::Repeats::no, [&] { ++once; });
    provider.makeTimer(50ms, services::Repeats::no, [this] { loop.quit(); });
    loop.exec();
    EXPECT_EQ(stopped, 1);
    EXPECT_EQ(once, 1);
}

TEST(InstanceLock, IsHeldByOneAndFreedByItsEnd) {
    const tests::TemporaryDirectory directory;
    const std::filesystem::path store = directory.path / "new" / "Hearthmark";
    {
        const InstanceLock first(store);
        EXPECT_EQ(first.state(), InstanceLock::State::held);
        EXPECT_EQ(InstanceLock(store).state(), InstanceLock::State::heldByAnother);
        EXPECT_EQ(std::filesystem::status(store).permissions(), std::filesystem::perms::owner_all);
    }
    std::array<int, 2> ready{};
    ASSERT_EQ(::pipe(ready.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const InstanceLock held(store);
        (void)::write(ready[1], "x", 1);
        ::pause();
    }
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    EXPECT_EQ(InstanceLock(store).state(), InstanceLock::State::heldByAnother);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_EQ(InstanceLock(store).state(), InstanceLock::State::held);
}

TEST(InstanceLock, TellsWhyItFailed) {
    const InstanceLock lock("/dev/null/Hearthmark");
    EXPECT_EQ(lock.state(), InstanceLock::State::failed);
    EXPECT_EQ(lock.error(), std::errc::not_a_directory);
}

TEST(PortalSettings, AreDarkAndStillAsTheDesktopPrefers) {
    struct Row {
        const char* group;
        const char* key;
        QVariant value;
        services::Appearance expected;
    };
    PortalSettings settings;
    for (const Row& row : std::vector<Row>{
             {"org.freedesktop.appearance", "color-scheme", 0U, {.isDark = true}},
             {"org.freedesktop.appearance", "color-scheme", 2U, {.isDark = false}},
             {"org.gnome.desktop.interface", "color-scheme", "prefer-dark", {.isDark = false}},
             {"org.freedesktop.appearance", "color-scheme", 1U, {.isDark = true}},
             {"org.freedesktop.appearance",
              "reduced-motion",
              1U,
              {.isDark = true, .isStill = true}},
             {"org.gnome.desktop.interface",
              "enable-animations",
              true,
              {.isDark = true, .isStill = true}},
             {"org.freedesktop.appearance", "reduced-motion", 0U, {.isDark = true}},
             {"org.gnome.desktop.interface",
              "enable-animations",
              false,
              {.isDark = true, .isStill = true}}}) {
        EXPECT_TRUE(PortalSettings::groups().contains(row.group));
        settings.take(row.group, row.key, row.value);
        constexpr bool kIsPaletteDark = true;
        EXPECT_EQ(settings.appearance(kIsPaletteDark), row.expected) << row.key;
    }
}

}  // namespace
}  // namespace hearthmark::platform
