// SPDX-License-Identifier: MIT
#include "objectstore/signal.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>

namespace hearthmark::objectstore {

namespace {

struct Scene {
    // Each slot notes its name and holds `closures`; "a" then acts, in the first round only.
    void connect(char name) {
        subscriptions[name] = signal->connect([this, name, held = closures](int round) {
            told += name + std::to_string(round);
            if (const auto doing = std::exchange(name == 'a' ? act : none, {})) {
                doing(*this);
                told += held.use_count() > 1 ? "" : "!";
            }
        });
    }

    std::function<void(Scene&)> act, none;
    std::optional<Signal<int>> signal{std::in_place};
    std::string told;
    std::shared_ptr<int> closures = std::make_shared<int>();
    std::map<char, Subscription> subscriptions;
};

}  // namespace

TEST(Signal, CallsInOrderThoseWhoAreConnectedWhateverASlotDoes) {
    struct Row {
        const char* what;  // "a" does in round 1, before "b" and "c" are called; round 3 follows
        std::function<void(Scene&)> act;
        const char* told;
        long closures;  // that are kept at the end, one of them by the scene
    };
    const auto rows = std::to_array<Row>({
        {"nothing", [](Scene&) {}, "a1b1c1a3b3c3", 4},
        {"connects", [](Scene& s) { s.connect('d'); }, "a1b1c1a3b3c3d3", 5},
        {"connects anew", [](Scene& s) { s.connect('b'); }, "a1c1a3c3b3", 4},
        {"ends itself", [](Scene& s) { s.subscriptions.erase('a'); }, "a1b1c1b3c3", 3},
        {"ends another", [](Scene& s) { s.subscriptions.erase('b'); }, "a1c1a3c3", 3},
        {"calls", [](Scene& s) { (*s.signal)(2); }, "a1a2b2c2b1c1a3b3c3", 4},
        {"ends itself and calls, and who connects is called",
         [](Scene& s) {
             s.subscriptions.erase('a');
             s.connect('d');
             (*s.signal)(2);
         },
         "a1b2c2d2b1c1b3c3d3", 4},
        {"destroys", [](Scene& s) { s.signal.reset(); }, "a1b1c1", 1},
        {"destroys and ends another",
         [](Scene& s) {
             s.signal.reset();
             s.subscriptions.erase('b');
         },
         "a1c1", 1},
        {"throws", [](Scene&) { throw std::runtime_error(""); }, "a1a3b3c3", 4},
    });
    for (const Row& row : rows) {
        Scene scene;
        for (const char name : {'a', 'b', 'c'}) {
            scene.connect(name);
        }
        scene.act = row.act;
        try {
            (*scene.signal)(1);
        } catch (const std::runtime_error&) {
            EXPECT_STREQ(row.what, "throws");
        }
        if (scene.signal) {
            (*scene.signal)(3);
        }
        EXPECT_EQ(scene.told, row.told) << row.what;
        EXPECT_EQ(scene.closures.use_count(), row.closures) << row.what;
    }
}

}  // namespace hearthmark::objectstore
