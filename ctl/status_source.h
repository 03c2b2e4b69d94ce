// SPDX-License-Identifier: MIT
#pragma once

#include <poll.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "ctl/focus_bus.h"
#include "ctl/focus_status.h"
#include "ctl/folder_watch.h"

namespace hearthmark::ctl {

// Knows the focus that runs at each moment: from the program, and where that is not on the session
// bus, or there is no bus, from the store, which is looked at when it changes. Its owner polls, and
// calls process() first, then whenever there is something, and when the timeout is over.
class StatusSource {
 public:
    explicit StatusSource(std::filesystem::path storeDirectory);

    std::array<pollfd, 3> polled() const;
    // In time that the machine is awake, since it was started; absent where nothing is awaited.
    std::optional<std::chrono::microseconds> timeout() const;
    // Throws StoreError where the store cannot be read at first; what comes later is told on
    // standard error, and what was known before stays.
    void process();

    // Whether anybody has answered yet.
    bool isKnown() const { return isKnown_; }
    const std::optional<FocusStatus>& status() const { return status_; }

 private:
    void watch(std::optional<FolderWatch>& watch, const std::filesystem::path& folder,
               std::uint32_t events);
    void connect();
    void tryLater();
    void lookForBus();
    void takeFromBus();
    void takeFromStore();

    std::filesystem::path storeDirectory_;
    std::filesystem::path socket_;
    std::optional<FocusWatch> bus_;
    // While there is no bus that has answered.
    std::optional<FolderWatch> socketWatch_;
    int triesLeft_ = 0;
    std::optional<std::chrono::microseconds> nextTry_;
    // While the program is not on the bus.
    std::optional<FolderWatch> storeWatch_;
    std::optional<std::chrono::microseconds> nextLook_;
    std::optional<FocusStatus> status_;
    bool isKnown_ = false;
    bool toldOfWatches_ = false;
};

}  // namespace hearthmark::ctl
