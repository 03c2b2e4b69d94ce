// SPDX-License-Identifier: MIT
#pragma once

namespace hearthmark::platform {

// Whether the session bus has started this process, which then shows nothing until a call asks for
// it. Takes what says so out of the environment, so that what this process starts is not misled: to
// be called once, before there are threads.
bool takeStartByBus();

}  // namespace hearthmark::platform
