// SPDX-License-Identifier: MIT
#include "platform/session/sudden_exit.h"

#include <cstdlib>
#include <utility>

namespace hearthmark::platform {

namespace {

SuddenExit* watching = nullptr;

}  // namespace

SuddenExit::SuddenExit(std::function<void()> onExit)
    : onExit_(std::move(onExit)), thread_(std::this_thread::get_id()) {
    watching = this;
    std::atexit(&SuddenExit::handleExit);
}

SuddenExit::~SuddenExit() {
    watching = nullptr;
}

void SuddenExit::handleExit() {
    SuddenExit* const exit = std::exchange(watching, nullptr);
    if (exit != nullptr && exit->thread_ == std::this_thread::get_id()) {
        exit->onExit_();
        // At once: other threads may still use what would be destroyed next.
        std::_Exit(EXIT_FAILURE);
    }
}

}  // namespace hearthmark::platform
