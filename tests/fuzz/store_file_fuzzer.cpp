// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <iostream>

#include "fuzz/store_damage.h"
#include "store/note.h"
#include "store/persistent_container_factory.h"
#include "support/shown_text.h"

namespace hearthmark::fuzz {

struct Ended {};
static const base::FatalErrorHandler kFatal([](std::string_view) { throw Ended(); });

// What the store shows once the program was started, used for a minute and ended.
static std::string textAfterUse(const tests::TestStore& store) {
    const store::PersistentContainerFactory factory(store.directory.path, kFatal);
    const auto container = factory.makeContainer();
    tests::shownText(container, store.clock->time);
    const store::LiveDataProvidingFactory liveData(container);
    store::DataOperationsService service(liveData, container, store.clock, kFatal);
    service.finishIntervalsLeftRunning();
    service.resumePausedIntervals();
    service.finishDueIntervals();
    service.pauseRunningIntervals();
    return tests::shownText(container, store.clock->time);
}

// Opens damaged stores as the program does. What it takes it shows, exports and finds again as it
// left it, and it takes all of which only rows were changed.
// NOLINTNEXTLINE(readability-identifier-naming): the library's name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static tests::TestStore store;
    static const std::string kSound = soundFile(store);
    std::cerr.setstate(std::ios::badbit);
    const StoreDamage damage({data, size});
    damage.apply(kSound, store.file);
    try {
        const std::string left = textAfterUse(store);
        if (tests::shownText(tests::open(store.directory.path), store.clock->time) != left) {
            std::abort();
        }
    } catch (const Ended&) {
        if (damage.isOfRowsAlone) {
            std::abort();
        }
    }
    return 0;
}

}  // namespace hearthmark::fuzz
