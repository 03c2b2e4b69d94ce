// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "livedata/fake_core_data_live_provider.h"
#include "support/test_store.h"

namespace hearthmark::livedata {

using store::Interval;
using store::Task;
using Sizes = std::vector<std::size_t>;

class LiveProviderTest : public testing::Test {
 protected:
    template <class Entity>
    std::unique_ptr<store::LiveDataProvider<Entity>> makeProvider() {
        return store.liveData->makeProvider<Entity>({.key = "creationDate", .ascending = true});
    }
    // Notes the size of each set that the provider publishes.
    template <class Entity>
    void note(store::LiveDataProvider<Entity>& provider, Sizes& sizes) {
        subscriptions.push_back(provider.currentItems()->subscribe(
            [&sizes](const auto& items) { sizes.push_back(items.size()); }));
    }
    void observe(const std::function<void(const store::Tasks&)>& act) {
        subscriptions.push_back(a->currentItems()->subscribe(act));
        note(*b, second);
        a->startObserving();
        b->startObserving();
    }

    tests::TestStore store;
    std::unique_ptr<store::LiveDataProvider<Task>> a = makeProvider<Task>();
    std::unique_ptr<store::LiveDataProvider<Task>> b = makeProvider<Task>();
    Sizes first, second;
    std::vector<Subscription> subscriptions;
};

TEST_F(LiveProviderTest, PublishesTheEmptySetThenTheFetchedOneThenTheSetOfEachSave) {
    Task& task = store.addTask("a");
    const auto idle = makeProvider<Task>();
    const auto intervals = makeProvider<Interval>();
    Sizes unstarted, ofIntervals;
    note(*idle, unstarted);
    note(*intervals, ofIntervals);
    intervals->startObserving();
    observe([this](const auto& tasks) { first.push_back(tasks.size()); });
    a->startObserving();
    EXPECT_EQ(first, (Sizes{0, 1})) << "a second start does nothing";
    store.addTask("b");
    task.setName("c");
    store.context().save();
    EXPECT_EQ(first, (Sizes{0, 1, 2, 2}));
    EXPECT_EQ(second, first);
    EXPECT_EQ(unstarted, Sizes{0});
    EXPECT_EQ(ofIntervals, (Sizes{0, 0})) << "of an empty store, and no interval was touched";
}

TEST_F(LiveProviderTest, CompletesEverySubjectWhenItIsDestroyed) {
    auto provider = std::make_shared<CoreDataLiveProvider<Task>>(
        store.container, objectstore::SortDescriptor{.key = "creationDate", .ascending = true});
    auto wrapper = std::make_unique<AnyCoreDataLiveProvider<Task>>(provider);
    EXPECT_EQ(wrapper->currentItems(), wrapper->currentItems());
    EXPECT_NE(provider->currentItems(), provider->currentItems()) << "a new one at each call";
    int completions = 0;
    // A subscription keeps the subject that it was made on.
    for (const auto& items : {provider->currentItems(), wrapper->currentItems()}) {
        subscriptions.push_back(
            items->subscribe([this](const auto& tasks) { first.push_back(tasks.size()); },
                             [&completions](const auto&) { ++completions; }));
    }
    provider->startObserving();
    store.addTask("a");
    EXPECT_EQ(first, (Sizes{0, 0, 0, 0, 1, 1}));
    provider.reset();
    EXPECT_EQ(completions, 0);
    wrapper.reset();
    EXPECT_EQ(completions, 2);
    EXPECT_THROW(FakeCoreDataLiveProvider<Task>().currentItems(), std::logic_error);
}

TEST_F(LiveProviderTest, RenewsEverySetBeforeAnybodyIsTold) {
    const auto later = makeProvider<Interval>();
    observe([&](const auto&) { first.push_back(later->currentItems()->value().size()); });
    later->startObserving();
    const auto interval = store.context().insert<Interval>();
    store.context().insert<Task>()->addIntervalsObject(*interval);
    store.context().save();
    EXPECT_EQ(first, (Sizes{0, 0, 1}));
}

TEST_F(LiveProviderTest, TellsEverybodyOfASaveBeforeAnybodyOfOneMadeMeanwhile) {
    const auto intervals = makeProvider<Interval>();
    std::string told;
    observe([&](const store::Tasks& tasks) {
        told += "T" + std::to_string(tasks.size());
        if (tasks.size() == 1) {
            store.addTask("nested");
            EXPECT_EQ(a->currentItems()->value().size(), 2) << "renewed at once";
        }
    });
    subscriptions.push_back(intervals->currentItems()->subscribe(
        [&told](const auto& items) { told += "I" + std::to_string(items.size()); }));
    intervals->startObserving();
    told.clear();
    store.context().insert<Interval>();
    store.context().insert<Task>();
    store.context().save();
    EXPECT_EQ(told, "T1I1T2");
    EXPECT_EQ(second, (Sizes{0, 0, 2})) << "never an older set";
}

TEST_F(LiveProviderTest, MayBeMadeAndDroppedByAnObserver) {
    Sizes ofMade;
    std::unique_ptr<store::LiveDataProvider<Task>> made;
    observe([&](const store::Tasks& tasks) {
        first.push_back(tasks.size());
        if (tasks.size() == 1) {
            a.reset();
            b.reset();
            made = makeProvider<Task>();
            note(*made, ofMade);
            made->startObserving();
        }
    });
    store.addTask("a");
    store.addTask("b");
    EXPECT_EQ(first, (Sizes{0, 0, 1}));
    EXPECT_EQ(second, (Sizes{0, 0}));
    EXPECT_EQ(ofMade, (Sizes{0, 1, 2}));
}

TEST_F(LiveProviderTest, MayTakeTheWholeStoreWithItWhileTelling) {
    const std::weak_ptr<objectstore::PersistentContainer> container = store.container;
    observe([&](const store::Tasks& tasks) {
        if (!tasks.empty()) {
            a.reset();
            b.reset();
            store.close();
        }
    });
    objectstore::ManagedObjectContext& context = store.context();
    context.insert<Task>();
    context.save();
    EXPECT_TRUE(container.expired());
    EXPECT_EQ(second, (Sizes{0, 0}));
}

}  // namespace hearthmark::livedata
