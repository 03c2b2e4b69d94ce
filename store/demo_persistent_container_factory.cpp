// SPDX-License-Identifier: MIT
#include "store/demo_persistent_container_factory.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "store/hearthmark_model.h"
#include "store/interval.h"
#include "store/note.h"
#include "store/task.h"

namespace hearthmark::store {

namespace {

using namespace std::chrono_literals;

struct DemoInterval {
    base::Seconds age;
    base::Seconds duration;
    base::Seconds maxDuration;
    StateCode state;
};

struct DemoTask {
    base::Seconds age;
    std::string name;
    std::vector<DemoInterval> intervals;
    std::vector<std::string> notes;
};

std::vector<DemoTask> demoTasks() {
    return {
        {.age = 120h,
         .name = "Prepare the talk on bird migration",
         .intervals = {{73h, 3600s, 3600s, StateCode::finished},
                       {49h, 1800s, 1800s, StateCode::finished},
                       {12min, 0s, 1800s, StateCode::running}},
         .notes = {"Ask the reserve for last year's ringing data.",
                   "Ten slides at most. Start with the map."}},
        {.age = 300h,
         .name = "Tax papers",
         .intervals = {{290h, 3600s, 3600s, StateCode::finished},
                       {269h, 1800s, 1800s, StateCode::finished},
                       {26h, 1260s, 1800s, StateCode::paused}},
         .notes = {"The receipts are in the blue folder."}},
        {.age = 250h,
         .name = "Learn the second movement by heart",
         .intervals = {{244h, 1800s, 1800s, StateCode::finished},
                       {218h, 3600s, 3600s, StateCode::finished},
                       {147h, 905s, 3600s, StateCode::finished},
                       {122h, 1800s, 1800s, StateCode::finished},
                       {25h, 3600s, 3600s, StateCode::finished},
                       {1h, 1800s, 1800s, StateCode::finished}},
         .notes = {"From memory up to the change of key."}},
        {.age = 200h,
         .name = "Sort the summer's photos",
         .intervals = {{196h, 1800s, 1800s, StateCode::finished},
                       {146h, 3600s, 3600s, StateCode::finished},
                       {50h, 1375s, 1800s, StateCode::finished}},
         .notes = {}},
        {.age = 3h, .name = "Call the landlord about the window", .intervals = {}, .notes = {}},
    };
}

IntervalState stateAt(StateCode code, base::Date started) {
    switch (code) {
        case StateCode::paused:
            return IntervalState::paused();
        case StateCode::running:
            return IntervalState::running(started);
        case StateCode::finished:
            break;
    }
    return IntervalState::finished();
}

void insert(const DemoTask& demo, base::Date now, objectstore::ManagedObjectContext& context) {
    const auto task = context.insert<Task>();
    task->setId(base::Uuid::random());
    task->setCreationDate(now + -demo.age);
    task->setName(demo.name);
    for (const DemoInterval& each : demo.intervals) {
        const base::Date created = now + -each.age;
        task->addIntervalsObject(*Interval::create({.creationDate = created,
                                                    .duration = each.duration,
                                                    .id = base::Uuid::random(),
                                                    .maxDuration = each.maxDuration,
                                                    .state = stateAt(each.state, created)},
                                                   context));
    }
    base::Date written = now + -demo.age;
    for (const std::string& text : demo.notes) {
        written = written + 1h;
        task->addNotesObject(*Note::create(
            {.creationDate = written, .id = base::Uuid::random(), .text = text}, context));
    }
}

}  // namespace

std::shared_ptr<objectstore::PersistentContainer> DemoPersistentContainerFactory::makeContainer()
    const {
    auto container =
        std::make_shared<objectstore::PersistentContainer>("Demo", hearthmarkModel(), std::nullopt);
    container->loadPersistentStores();
    for (const DemoTask& task : demoTasks()) {
        insert(task, now_, container->viewContext());
    }
    container->viewContext().save();
    return container;
}

}  // namespace hearthmark::store
