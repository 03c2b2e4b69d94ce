// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>

#include "platform/session/call_rate.h"

namespace hearthmark::platform {

// For the event() of an object on the bus, where each call comes as an event. The toolkit queues
// without end what comes faster than it is answered; turned away there it costs nearly nothing, and
// the window is not kept from its own events. The toolkit answers it with an error.
class CallGate {
 public:
    explicit CallGate(CallLimit::Bounds bounds) : limit_(bounds, steadyNow()) {}

    // Counts the event where it answers yes.
    bool admits(const QEvent& event) {
        if (event.type() != QEvent::MetaCall) {
            return true;
        }
        const bool isFree = limit_.isFree(steadyNow());
        if (isFree) {
            limit_.count();
        }
        return isFree;
    }

 private:
    CallLimit limit_;
};

}  // namespace hearthmark::platform
