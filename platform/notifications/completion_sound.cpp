// SPDX-License-Identifier: MIT
#include "platform/notifications/completion_sound.h"

#include <canberra.h>

#include <QLibrary>
#include <chrono>
#include <future>
#include <memory>
#include <thread>

#include "platform/session/application_object.h"

namespace hearthmark::platform {

namespace {

using namespace std::chrono_literals;

// The library is loaded when there is something to play, and not linked: with those that it needs
// it would stand in memory from the start on.
struct Canberra {
    bool isLoaded() { return library.load(); }

    template <class Function>
    Function resolve(const char* name) {
        return reinterpret_cast<Function>(library.resolve(name));
    }

    QLibrary library{QStringLiteral("canberra"), 0};
    decltype(&ca_context_create) create = resolve<decltype(create)>("ca_context_create");
    decltype(&ca_context_destroy) destroy = resolve<decltype(destroy)>("ca_context_destroy");
    decltype(&ca_context_change_props) change =
        resolve<decltype(change)>("ca_context_change_props");
    decltype(&ca_context_play_full) play = resolve<decltype(play)>("ca_context_play_full");
    decltype(&ca_proplist_create) createList = resolve<decltype(createList)>("ca_proplist_create");
    decltype(&ca_proplist_sets) set = resolve<decltype(set)>("ca_proplist_sets");
    decltype(&ca_proplist_destroy) destroyList =
        resolve<decltype(destroyList)>("ca_proplist_destroy");
};

void ended(ca_context* /*context*/, uint32_t /*id*/, int /*error*/, void* end) {
    static_cast<std::promise<void>*>(end)->set_value();
}

// The sound server may let this wait for as long as it likes.
void play() {
    Canberra canberra;
    ca_context* made = nullptr;
    if (!canberra.isLoaded() || canberra.create(&made) != CA_SUCCESS) {
        return;
    }
    std::promise<void> end;
    const std::unique_ptr<ca_context, decltype(canberra.destroy)> context(made, canberra.destroy);
    canberra.change(made, CA_PROP_APPLICATION_NAME, "Hearthmark", CA_PROP_APPLICATION_ID,
                    kApplicationId, nullptr);
    ca_proplist* sound = nullptr;
    if (canberra.createList(&sound) != CA_SUCCESS) {
        return;
    }
    canberra.set(sound, CA_PROP_EVENT_ID, "complete");
    const int error = canberra.play(made, 0, sound, &ended, &end);
    canberra.destroyList(sound);
    if (error == CA_SUCCESS) {
        end.get_future().wait_for(30s);
    }
}

}  // namespace

void playCompletionSound() {
    std::thread(&play).detach();
}

}  // namespace hearthmark::platform
