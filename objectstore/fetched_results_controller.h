// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <boost/signals2/connection.hpp>
#include <cassert>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "objectstore/entity_description.h"
#include "objectstore/managed_object_context.h"

namespace hearthmark::objectstore {

// An order by one attribute of the entity, named by its column. Absent values come first where
// ascending; ties go by the row's key.
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

    // The fetched objects in the order of the request, sorted at each call.
    std::vector<std::shared_ptr<Object>> fetchedObjects() const {
        std::vector<std::pair<Value, Object*>> keyed;
        const AttributeDescription& attribute = sortAttribute();
        for (Object& object : objects_.value_or(ObjectSet<Object>())) {
            keyed.emplace_back(attribute.value(object), &object);
        }
        const bool ascending = request_.sortDescriptor.ascending;
        std::ranges::stable_sort(keyed, [ascending](const auto& a, const auto& b) {
            return ascending ? a.first < b.first : b.first < a.first;
        });
        std::vector<std::shared_ptr<Object>> objects;
        objects.reserve(keyed.size());
        for (const auto& [value, object] : keyed) {
            objects.push_back(std::static_pointer_cast<Object>(object->shared_from_this()));
        }
        return objects;
    }

 private:
    const AttributeDescription& sortAttribute() const {
        const auto& attributes = Object::entity().attributes();
        const auto found =
            std::ranges::find(attributes, request_.sortDescriptor.key, &AttributeDescription::name);
        assert(found != attributes.end());
        return *found;
    }

    void call(std::function<void()> Delegate::*function) {
        if (const std::shared_ptr<const Delegate> kept = delegate_; kept && (*kept).*function) {
            ((*kept).*function)();
        }
    }

    FetchRequest<Object> request_;
    ManagedObjectContext& context_;
    std::shared_ptr<const Delegate> delegate_;
    std::optional<ObjectSet<Object>> objects_;
    boost::signals2::scoped_connection renewal_;
    boost::signals2::scoped_connection observer_;
};

}  // namespace hearthmark::objectstore
