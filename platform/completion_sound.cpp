// SPDX-License-Identifier: MIT
#include "platform/completion_sound.h"

#include <canberra.h>

#include <chrono>
#include <future>
#include <memory>
#include <thread>

#include "platform/application_object.h"

namespace hearthmark::platform {

namespace {

using namespace std::chrono_literals;

struct DestroyContext {
    void operator()(ca_context* context) const { ca_context_destroy(context); }
};

void ended(ca_context* /*context*/, uint32_t /*id*/, int /*error*/, void* end) {
    static_cast<std::promise<void>*>(end)->set_value();
}

// The sound server may let this wait for as long as it likes.
void play() {
    ca_context* made = nullptr;
    if (ca_context_create(&made) != CA_SUCCESS) {
        return;
    }
    std::promise<void> end;
    const std::unique_ptr<ca_context, DestroyContext> context(made);
    ca_context_change_props(made, CA_PROP_APPLICATION_NAME, "Hearthmark", CA_PROP_APPLICATION_ID,
                            kApplicationId, nullptr);
    ca_proplist* sound = nullptr;
    if (ca_proplist_create(&sound) != CA_SUCCESS) {
        return;
    }
    ca_proplist_sets(sound, CA_PROP_EVENT_ID, "complete");
    const int error = ca_context_play_full(made, 0, sound, &ended, &end);
    ca_proplist_destroy(sound);
    if (error == CA_SUCCESS) {
        end.get_future().wait_for(30s);
    }
}

}  // namespace

void playCompletionSound() {
    std::thread(&play).detach();
}

}  // namespace hearthmark::platform
