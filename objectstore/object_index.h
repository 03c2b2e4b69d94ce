// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "objectstore/managed_object_context.h"

namespace hearthmark::objectstore {

// All objects of one entity for which a condition on their own attributes holds, kept by looking
// only at the objects that a save touched. Renewed before anybody is told of the save. The context
// must outlive it.
template <class Object>
class ObjectIndex {
 public:
    using Condition = std::function<bool(const Object&)>;

    ObjectIndex(ManagedObjectContext& context, Condition condition)
        : condition_(std::move(condition)) {
        for (Object& object : context.objects<Object>()) {
            file(object);
        }
        subscription_ = context.connectIndex([this](const SavedChanges& changes) {
            for (const std::shared_ptr<ManagedObject>& object : changes.objects) {
                if (&object->entityDescription() == &Object::entity()) {
                    file(static_cast<Object&>(*object));
                }
            }
        });
    }

    // The objects, ascending by key; a copy, so that they may be changed and saved while walked.
    std::vector<std::shared_ptr<Object>> objects() const {
        std::vector<std::shared_ptr<Object>> objects;
        objects.reserve(objects_.size());
        for (const auto& [key, object] : objects_) {
            objects.push_back(object);
        }
        return objects;
    }

 private:
    void file(Object& object) {
        if (object.isManaged() && condition_(object)) {
            objects_.insert_or_assign(object.key(),
                                      std::static_pointer_cast<Object>(object.shared_from_this()));
        } else {
            objects_.erase(object.key());
        }
    }

    Condition condition_;
    std::map<RowKey, std::shared_ptr<Object>> objects_;
    Subscription subscription_;
};

}  // namespace hearthmark::objectstore
