// SPDX-License-Identifier: MIT
#include "ctl/status_source.h"

#include <sys/inotify.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "ctl/time_awake.h"

namespace hearthmark::ctl {

namespace {

// A socket is there some moments before somebody listens to it.
constexpr int kMostTries = 20;
constexpr std::chrono::milliseconds kBetweenTries{100};

// A program that starts or ends changes the store some times, and is on the bus soon, or gone.
constexpr std::chrono::milliseconds kSettling{300};

// The log of the store, which only who changes it writes, and what the program holds while it runs.
constexpr std::string_view kStoreLog = "Hearthmark.sqlite-wal";
constexpr std::string_view kLock = "Hearthmark.lock";

constexpr std::uint32_t kSocketEvents = IN_CREATE | IN_MOVED_TO | IN_ATTRIB;
constexpr std::uint32_t kStoreEvents = IN_MODIFY | IN_CLOSE_WRITE;

// The file to which programs connect for the session bus; empty where its address names none.
std::string sessionBusSocket() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): this program has one thread
    const char* const address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    if (address == nullptr) {
        // NOLINTNEXTLINE(concurrency-mt-unsafe): as above
        const char* const directory = std::getenv("XDG_RUNTIME_DIR");
        return directory != nullptr ? std::string(directory) + "/bus" : "";
    }
    constexpr std::string_view prefix = "unix:path=";
    const std::string_view text = address;
    const auto begin = text.find(prefix);
    if (begin == std::string_view::npos) {
        return {};
    }
    const std::string_view rest = text.substr(begin + prefix.size());
    return std::string(rest.substr(0, rest.find_first_of(",;")));
}

pollfd readable(const std::optional<FolderWatch>& watch) {
    return {.fd = watch ? watch->descriptor() : -1, .events = POLLIN, .revents = 0};
}

}  // namespace

StatusSource::StatusSource(std::filesystem::path storeDirectory)
    : storeDirectory_(std::move(storeDirectory)), socket_(sessionBusSocket()) {
    connect();
}

std::array<pollfd, 3> StatusSource::polled() const {
    const pollfd bus =
        bus_ ? pollfd{.fd = bus_->descriptor(), .events = bus_->events(), .revents = 0}
             : pollfd{.fd = -1, .events = 0, .revents = 0};
    return {bus, readable(socketWatch_), readable(storeWatch_)};
}

std::optional<std::chrono::microseconds> StatusSource::timeout() const {
    std::optional<std::chrono::microseconds> earliest = bus_ ? bus_->timeout() : nextTry_;
    if (nextLook_) {
        earliest = std::min(earliest.value_or(*nextLook_), *nextLook_);
    }
    return earliest;
}

void StatusSource::process() {
    if (!bus_) {
        lookForBus();
    }
    if (bus_) {
        takeFromBus();
    }
    if (!bus_ || bus_->program() == FocusWatch::Program::absent) {
        takeFromStore();
    }
}

// Without a watch it goes on with what it is told otherwise.
void StatusSource::watch(std::optional<FolderWatch>& watch, const std::filesystem::path& folder,
                         std::uint32_t events) {
    try {
        watch.emplace(folder, events);
    } catch (const std::system_error& error) {
        if (!std::exchange(toldOfWatches_, true)) {
            std::cerr << "hearthmarkctl: Changes of files cannot be followed: " << error.what()
                      << '\n';
        }
    }
}

void StatusSource::connect() {
    nextTry_.reset();
    // Before it is tried, so that no bus comes unseen.
    if (!socketWatch_ && socket_.has_parent_path()) {
        watch(socketWatch_, socket_.parent_path(), kSocketEvents);
    }
    try {
        bus_.emplace();
    } catch (const BusError&) {
        tryLater();
    }
}

void StatusSource::tryLater() {
    if (triesLeft_ > 0) {
        --triesLeft_;
        nextTry_ = timeAwake() + kBetweenTries;
    }
}

void StatusSource::lookForBus() {
    if (socketWatch_) {
        socketWatch_->read([this](std::string_view name, std::uint32_t) {
            if (socket_.filename() == name) {
                triesLeft_ = kMostTries;
                nextTry_ = timeAwake();
            }
        });
    }
    if (nextTry_ && timeAwake() >= *nextTry_) {
        connect();
    }
}

void StatusSource::takeFromBus() {
    try {
        bus_->process();
    } catch (const BusError&) {
        // One that never answered has let nobody in, and would not at once.
        const bool wasOfUse = !socketWatch_;
        bus_.reset();
        wasOfUse ? connect() : tryLater();
        return;
    }
    if (bus_->program() != FocusWatch::Program::unknown) {
        triesLeft_ = kMostTries;
        socketWatch_.reset();
    }
    if (bus_->program() == FocusWatch::Program::present) {
        storeWatch_.reset();
        nextLook_.reset();
        status_ = bus_->running();
        isKnown_ = true;
    }
}

void StatusSource::takeFromStore() {
    if (storeWatch_) {
        storeWatch_->read([this](std::string_view name, std::uint32_t event) {
            if (name == kStoreLog || (name == kLock && (event & IN_CLOSE_WRITE) != 0)) {
                nextLook_ = nextLook_.value_or(timeAwake() + kSettling);
            }
        });
    } else {
        watch(storeWatch_, storeDirectory_, kStoreEvents);
        nextLook_ = timeAwake();
    }
    if (!nextLook_ || timeAwake() < *nextLook_) {
        return;
    }
    nextLook_.reset();
    try {
        status_ = focusInStore(storeDirectory_);
        isKnown_ = true;
    } catch (const std::exception& error) {
        if (!isKnown_) {
            throw;
        }
        std::cerr << "hearthmarkctl: " << error.what() << '\n';
    }
}

}  // namespace hearthmark::ctl
