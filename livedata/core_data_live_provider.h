// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "livedata/current_value_subject.h"
#include "livedata/live_data_providing.h"
#include "objectstore/fetched_results_controller.h"
#include "objectstore/persistent_container.h"

namespace hearthmark::livedata {

// Follows all objects of an entity in the view context of a container.
template <class Entity>
class CoreDataLiveProvider final : public LiveDataProviding<Entity> {
 public:
    CoreDataLiveProvider(std::shared_ptr<objectstore::PersistentContainer> persistentContainer,
                         objectstore::SortDescriptor sortDescriptor)
        : persistentContainer_(std::move(persistentContainer)),
          sortDescriptor_(std::move(sortDescriptor)) {}
    CoreDataLiveProvider(const CoreDataLiveProvider&) = delete;
    CoreDataLiveProvider& operator=(const CoreDataLiveProvider&) = delete;
    ~CoreDataLiveProvider() override { currentItems_->complete(); }

    // A new subject at each call.
    std::shared_ptr<CurrentItems<Entity>> currentItems() override {
        return std::make_shared<CurrentItems<Entity>>(*currentItems_);
    }

    void startObserving() override {
        if (resultsController_) {
            return;
        }
        objectstore::FetchRequest<Entity> request = Entity::fetchRequest();
        request.sortDescriptor = sortDescriptor_;
        resultsController_.emplace(std::move(request), persistentContainer_->viewContext());
        // An observer may destroy this provider: the subject is kept while it speaks.
        resultsController_->setDelegate(
            {.controllerDidRenewContent =
                 [this] { currentItems_->stage(*resultsController_->fetchedSet()); },
             .controllerDidChangeContent = [subject = currentItems_] { subject->announce(); }});
        resultsController_->performFetch();
        currentItems_->setValue(*resultsController_->fetchedSet());
    }

 private:
    using Items = objectstore::ObjectSet<Entity>;

    std::shared_ptr<CurrentValueSubject<Items>> currentItems_ =
        std::make_shared<CurrentValueSubject<Items>>(Items());
    std::shared_ptr<objectstore::PersistentContainer> persistentContainer_;
    objectstore::SortDescriptor sortDescriptor_;
    std::optional<objectstore::FetchedResultsController<Entity>> resultsController_;
};

}  // namespace hearthmark::livedata
