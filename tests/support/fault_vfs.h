// SPDX-License-Identifier: MIT
#pragma once

#include <sqlite3.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace hearthmark::tests {

// SQLite's file system for as long as this lives, over the usual one. It records what happens to
// the files, to show them as they may be after a power cut, and lets calls fail. One at a time;
// main thread.
class FaultVfs {
 public:
    // A change of a file.
    struct Event {
        enum class Kind { write, truncate, sync, remove };

        Kind kind;
        std::string file;
        // The new size, for a truncation.
        sqlite3_int64 offset = 0;
        std::string bytes{};
        // How many operations had returned by then.
        int returned = 0;
    };

    // The kinds of calls that can fail.
    enum class Call { read, write, truncate, sync, lock };

    // What a call that fails does.
    enum class Fault { ioError, outOfSpace, shortWrite };

    // Those that there are.
    static constexpr std::array<std::pair<Call, Fault>, 7> kFaults{
        {{Call::read, Fault::ioError},
         {Call::write, Fault::ioError},
         {Call::write, Fault::outOfSpace},
         {Call::write, Fault::shortWrite},
         {Call::sync, Fault::ioError},
         {Call::truncate, Fault::ioError},
         {Call::lock, Fault::ioError}}};

    // By the name of each file, what is in it.
    using Image = std::map<std::string, std::string>;

    FaultVfs();
    FaultVfs(const FaultVfs&) = delete;
    FaultVfs& operator=(const FaultVfs&) = delete;
    ~FaultVfs();

    // From the files of the directory as they are now, until it is to stop.
    void record(const std::filesystem::path& directory);
    void stop() { isRecording_ = false; }
    void setReturned(int operations) { returned_ = operations; }
    // What happened since recording began.
    const std::vector<Event>& events() const { return events_; }
    // The files after a power cut that came after so many events. What was synced is there; of each
    // later write all, nothing or some sectors.
    Image imageAfterCut(std::size_t events, std::mt19937& dice) const;

    // Lets the call of that kind fail that comes after so many others. Counting begins anew.
    void failOnce(Call call, int after, Fault fault);
    bool hasFailed() const { return hasFailed_; }

 private:
    struct File;
    struct Methods;

    void note(Event::Kind kind, const std::string& file, sqlite3_int64 offset, std::string bytes);
    // Whether this one is to fail.
    bool fails(Call call);

    sqlite3_vfs vfs_{};
    sqlite3_vfs* real_;
    bool isRecording_ = false;
    int returned_ = 0;
    Image beginning_;
    std::vector<Event> events_;
    Call failing_ = Call::read;
    Fault fault_ = Fault::ioError;
    // Negative where none is to fail.
    std::atomic<int> callsUntilFault_ = -1;
    std::atomic<bool> hasFailed_ = false;
};

}  // namespace hearthmark::tests
