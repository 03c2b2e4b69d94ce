// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "livedata/published.h"

namespace hearthmark::services {

enum class UpdatePhase {
    idle,
    checking,
    upToDate,
    available,
    downloading,
    verifying,
    handingOver,
    handedOver,
    failed
};

// How far an update is: all that the dialogue about it shows.
struct UpdateState {
    UpdatePhase phase = UpdatePhase::idle;
    // The one that was found; while up to date, that of this program.
    std::string version;
    // What is new in it, as plain text; only while it is offered.
    std::string notes;
    // Of the package, in bytes.
    std::int64_t size = 0;
    std::int64_t received = 0;
    // What became of it: why it failed, or whether something took the package.
    std::string message;
    // The file; only once it was handed over.
    std::string package;

    bool operator==(const UpdateState&) const = default;
};

// Looks for a newer version of this program, fetches it and hands it to the system's installer.
// Fetches nothing unless it is told to. Main thread; no call waits for the network.
//
//     checkForUpdates()   idle -> checking -> upToDate, available or failed
//     install()           available -> downloading -> verifying -> handingOver -> handedOver
//                         (or, from any of them, failed)
//     dismiss()           any -> idle
class Updater {
 public:
    virtual ~Updater() = default;

    // Looks for a newer version. While it cannot be done, does nothing.
    virtual void checkForUpdates() = 0;

    // Fetches the version that was found. While none is available, does nothing.
    virtual void install() = 0;

    // Opens the folder of the package that was handed over. False where nothing opens folders.
    virtual bool showPackage() = 0;

    // Ends whatever goes on, throws away what came so far and closes the dialogue. A package that
    // was handed over stays.
    virtual void dismiss() = 0;

    // False while the state is not idle, and for good where there is a reason. Becomes false before
    // the state leaves idle and true after it is back.
    virtual livedata::Published<bool>& canCheckForUpdates() = 0;

    virtual livedata::Published<UpdateState>& state() = 0;

    // Why this program cannot be updated, as a sentence; empty where it can.
    virtual const std::string& unavailableReason() const = 0;
};

}  // namespace hearthmark::services
