// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "objectstore/entity_description.h"
#include "objectstore/managed_object_context.h"

namespace hearthmark::objectstore {

// An order by one attribute of the entity, named by its column.
struct SortDescriptor {
    std::string key;
    bool ascending;
};

// All objects of one entity, in an order.
template <class Object>
struct FetchRequest {
    SortDescriptor sortDescriptor;
};

// Follows all objects of one entity: fetches them once, and after each save that touches the entity
// renews what it holds and then tells. The context must outlive it.
template <class Object>
class FetchedResultsController {
 public:
    struct Delegate {
        // All current sets are being renewed; nobody has been told yet.
        std::function<void()> controllerDidRenewContent;
        std::function<void()> controllerDidChangeContent;
    };

    FetchedResultsController(FetchRequest<Object> request, ManagedObjectContext& context)
        : request_(std::move(request)), context_(context) {}

    // Replaces the delegate. Either function may destroy the controller.
    void setDelegate(Delegate delegate) {
        delegate_ = std::make_shared<const Delegate>(std::move(delegate));
    }

    // Fetches and begins to follow. Called once.
    void performFetch() {
        objects_ = context_.objects<Object>();
        renewal_ = context_.connectRenewal([this](const SavedChanges& changes) {
            if (changes.touches(Object::entity())) {
                objects_ = context_.objects<Object>();
                call(&Delegate::controllerDidRenewContent);
            }
        });
        observer_ = context_.connectObserver([this](const SavedChanges& changes) {
            if (changes.touches(Object::entity())) {
                call(&Delegate::controllerDidChangeContent);
            }
        });
    }

    // The fetched set, shared with every other controller of the entity; absent before the fetch.
    const std::optional<ObjectSet<Object>>& fetchedSet() const { return objects_; }

 private:
    void call(std::function<void()> Delegate::*function) {
        if (const std::shared_ptr<const Delegate> kept = delegate_; kept && (*kept).*function) {
            ((*kept).*function)();
        }
    }

    // Kept, but of no consequence: what is published is a set.
    FetchRequest<Object> request_;
    ManagedObjectContext& context_;
    std::shared_ptr<const Delegate> delegate_;
    std::optional<ObjectSet<Object>> objects_;
    Subscription renewal_;
    Subscription observer_;
};

}  // namespace hearthmark::objectstore
