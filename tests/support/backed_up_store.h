// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "store/store_backups.h"
#include "support/test_store.h"

namespace hearthmark::tests {

// A store with its backups, whose days are those since the reference date, whatever the time zone.
struct BackedUpStore : TestStore {
    BackedUpStore();

    void setDay(int day) const;
    // A start on that day.
    void begin(int day) const;
    std::string content() const;
    // Of the backups, newest first.
    std::string names() const;
    // Whether a file of those bytes is there under whatever name.
    bool isKept(const std::string& bytes) const;
    // As the program begins, in a process of its own. What it said before it ended; nothing where
    // it goes on.
    std::string launchMessage() const;

    std::shared_ptr<const store::StoreBackups> backups;
};

// What a message tells to be typed; "false" where it tells nothing.
std::string commandIn(const std::string& message);

// At a shell; how it ended.
int type(const std::string& command);

}  // namespace hearthmark::tests
