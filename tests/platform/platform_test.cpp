// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QImage>
#include <chrono>
#include <limits>
#include <memory>

#include "platform/desktop/portal_settings.h"
#include "platform/desktop/time_keeping_provider.h"
#include "platform/session/call_rate.h"
#include "platform/session/instance_lock.h"
#include "platform/status_item/status_icon.h"

namespace hearthmark::platform {
namespace {

using namespace std::chrono_literals;

TEST(CallRate, LeavesRoomForOthersBesideOneThatCallsTooOften) {
    CallRate rate({.atOnce = 3, .perSecond = 1}, {.atOnce = 5, .perSecond = 2}, 100s);
    struct Row {
        base::Seconds at;
        std::string callers;
        std::string expected;  // of each, whether it got through
    };
    for (const auto& [now, callers, expected] :
         {Row{100s, "aaaaab", "111001"}, Row{100s, "bbc", "100"}, Row{100.4s, "ad", "00"},
          Row{101s, "aad", "101"}, Row{101s, "e", "0"}, Row{200s, "aaaabbb", "1110110"}}) {
        std::string admitted;
        for (const char caller : callers) {
            admitted += rate.admits(std::string(1, caller), now) ? '1' : '0';
        }
        EXPECT_EQ(admitted, expected) << callers;
    }
}

TEST(TimeKeepingProvider, FiresAfterEachIntervalUntilItIsStoppedAlsoByItsOwnAction) {
    int argc = 0;
    QCoreApplication application(argc, nullptr);
    TimeKeepingProvider provider;
    QEventLoop loop;
    QElapsedTimer elapsed;
    elapsed.start();
    std::vector<qint64> firings;
    int once = 0;
    std::shared_ptr<services::TimeKeeping> timer;
    timer = provider.makeTimer(20ms, services::Repeats::yes, [&] {
        firings.push_back(elapsed.elapsed());
        if (firings.size() == 3) {
            timer->invalidate();
            timer->invalidate();
        }
    });
    // The handles are dropped at once: the timers go on.
    provider.makeTimer(1ms, services::Repeats::no, [&once] { ++once; });
    provider.makeTimer(150ms, services::Repeats::no, [&loop] { loop.quit(); });
    loop.exec();
    ASSERT_EQ(firings.size(), 3);
    EXPECT_GE(firings[0], 19);
    EXPECT_GE(firings[2], 59);
    EXPECT_EQ(once, 1);
}

TEST(InstanceLock, TellsWhyItFailed) {
    const InstanceLock lock("/dev/null/Hearthmark");
    EXPECT_EQ(lock.state(), InstanceLock::State::failed);
    EXPECT_EQ(lock.error(), std::errc::not_a_directory);
}

TEST(PortalSettings, AreDarkAndStillAsTheDesktopPrefers) {
    constexpr auto kPortal = "org.freedesktop.appearance";
    constexpr auto kOlder = "org.gnome.desktop.interface";
    struct Row {
        const char* group;
        const char* key;
        QVariant value;
        bool isDark;
        bool isStill;
    };
    PortalSettings settings;
    for (const Row& row : std::vector<Row>{{kPortal, "color-scheme", 0U, true, false},
                                           {kPortal, "color-scheme", 2U, false, false},
                                           {kOlder, "color-scheme", "prefer-dark", false, false},
                                           {kPortal, "color-scheme", 1U, true, false},
                                           {kPortal, "reduced-motion", 1U, true, true},
                                           {kOlder, "enable-animations", true, true, true},
                                           {kPortal, "reduced-motion", 0U, true, false},
                                           {kOlder, "enable-animations", false, true, true}}) {
        EXPECT_TRUE(PortalSettings::groups().contains(row.group));
        settings.take(row.group, row.key, row.value);
        constexpr bool kIsPaletteDark = true;
        const services::Appearance expected{.isDark = row.isDark, .isStill = row.isStill};
        EXPECT_EQ(settings.appearance(kIsPaletteDark), expected) << row.key;
    }
}

TEST(StatusIcon, TellsTimeLeftRoundedUpAndTimeSpentRoundedDown) {
    struct Row {
        double spent = 0;
        double maximum = 0;
        StatusIconState state;
    };
    for (const Row& row :
         {Row{0, 1800, {"30", 24}}, Row{1, 1800, {"30", 24}}, Row{60, 1800, {"29", 24}},
          Row{119, 1800, {"29", 24}}, Row{899, 1800, {"16", 13}}, Row{1799.9, 1800, {"1", 1}},
          Row{1800, 1800, {"0", 0}}, Row{9999, 1800, {"0", 0}}, Row{0, 5, {"1", 24}},
          Row{60, 6000, {"99", 24}}, Row{0, 6000, {"2h", 24}}, Row{59, 0, {"0", {}}},
          Row{5999, 0, {"99", {}}}, Row{6000, 0, {"1h", {}}}, Row{1e300, 0, {"99h", {}}},
          Row{0, std::numeric_limits<double>::quiet_NaN(), {"99h", 24}}}) {
        EXPECT_EQ(statusIconState({{"", base::Seconds(row.spent), base::Seconds(row.maximum)}}),
                  row.state)
            << row.spent << " of " << row.maximum;
    }
    constexpr int kSize = 22;
    for (const auto& [hasDot, color] : {std::pair(false, "#2e241d"), std::pair(true, "#d81e3f")}) {
        const QImage image =
            paintStatusIcon({.text = {}, .ringSteps = {}, .hasDot = hasDot}, kSize);
        EXPECT_EQ(image.pixelColor(17, 4).name(), color) << hasDot;
    }
}

}  // namespace
}  // namespace hearthmark::platform
