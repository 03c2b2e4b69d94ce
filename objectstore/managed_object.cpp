// SPDX-License-Identifier: MIT
#include "objectstore/managed_object.h"

#include "objectstore/entity_description.h"
#include "objectstore/managed_object_context.h"

#include <cassert>

namespace hearthmark::objectstore {

ManagedObject::ManagedObject() = default;

ManagedObject::~ManagedObject() = default;

std::shared_ptr<ManagedObject> ManagedObject::shared_from_this() {
    assert(isManaged());
    return context_->handle(*this);
}

void ManagedObject::touch() {
    willChange();
    if (context_ != nullptr && !isTouched_) {
        context_->touched(shared_from_this());
    }
}

void ManagedObject::relate(const ReferenceDescription& reference, ManagedObject* parent) {
    assert(parent == nullptr || parent->context_ == context_);
    if (!isManaged()) {
        return;
    }
    touch();
    if (ManagedObject* previous = reference.parent(*this)) {
        previous->touch();
    }
    if (parent != nullptr) {
        parent->touch();
        if (!reference.isToMany) {
            // The parent lets go of the child that it had.
            for (ManagedObject* replaced : reference.children(*parent)) {
                replaced->touch();
            }
        }
    }
    reference.link(*this, parent);
}

}  // namespace hearthmark::objectstore
