// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

#include "objectstore/value.h"

namespace hearthmark::objectstore {

class EntityDescription;
class ManagedObjectContext;
struct ReferenceDescription;

// An object that stands for one row of a store. There is one for each row and context, so objects
// are compared by identity. The context owns it; whoever else holds a handle may outlive its
// deletion and the context: attributes then stay readable, relationships read empty, and changes
// reach no store. They live in blocks, each as long as one of its objects. Only on the thread of
// the context.
class ManagedObject {
 public:
    ManagedObject(const ManagedObject&) = delete;
    ManagedObject& operator=(const ManagedObject&) = delete;
    virtual ~ManagedObject();

    virtual const EntityDescription& entityDescription() const = 0;

    RowKey key() const { return key_; }
    // False once it has been deleted or its context is gone.
    bool isManaged() const { return context_ != nullptr; }
    // A handle on it, which the context looks up: to know it would take each object 16 bytes.
    // Requires: isManaged().
    // NOLINTNEXTLINE(readability-identifier-naming): as the standard library calls it
    std::shared_ptr<ManagedObject> shared_from_this();

 protected:
    ManagedObject();

    // Every attribute is set through this. An assignment of an equal value touches the object too:
    // it writes nothing, but its entity is published by the next save.
    template <class Attribute>
    void assign(Attribute& attribute, std::type_identity_t<Attribute> value) {
        touch();
        attribute = std::move(value);
    }

    // Called before every change of this object: an assignment, and a change of a relationship at
    // either end. For values that are worked out from the object and remembered.
    virtual void willChange() {}

    // Points the to-one end `reference` of this object at `parent` (or nothing) and keeps the other
    // end in step; both objects, and the parent before, are touched.
    void relate(const ReferenceDescription& reference, ManagedObject* parent);

 private:
    friend class ManagedObjectContext;

    // Tells the context that a change follows. Must come before it: the context keeps what the row
    // holds, to write only what differs.
    void touch();

    RowKey key_ = 0;
    ManagedObjectContext* context_ = nullptr;
    bool isInserted_ = false;
    bool isTouched_ = false;
};

}  // namespace hearthmark::objectstore
