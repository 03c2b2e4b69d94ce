// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>

#include "objectstore/object_list.h"

namespace hearthmark::objectstore {

// The set of all objects of one entity as of one save: immutable, shared by all who hold it, cheap
// to copy. Its objects stay alive with it and are live: their attributes may have changed since.
template <class Object>
class ObjectSet {
 public:
    class Iterator {
     public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Object;
        using difference_type = std::ptrdiff_t;
        using pointer = Object*;
        using reference = Object&;

        Iterator() = default;
        explicit Iterator(ObjectList::Iterator position) : position_(position) {}

        Object& operator*() const { return static_cast<Object&>(**position_); }
        Object* operator->() const { return &**this; }
        Iterator& operator++() {
            ++position_;
            return *this;
        }
        Iterator operator++(int) { return Iterator(position_++); }
        bool operator==(const Iterator&) const = default;

     private:
        ObjectList::Iterator position_;
    };

    ObjectSet() : objects_(std::make_shared<const ObjectList>()) {}
    explicit ObjectSet(std::shared_ptr<const ObjectList> objects) : objects_(std::move(objects)) {}

    Iterator begin() const { return Iterator(objects_->begin()); }
    Iterator end() const { return Iterator(objects_->end()); }
    std::size_t size() const { return objects_->size(); }
    bool empty() const { return objects_->size() == 0; }
    bool contains(const Object& object) const {
        return objects_->find(object.key()).get() == &object;
    }

 private:
    std::shared_ptr<const ObjectList> objects_;
};

}  // namespace hearthmark::objectstore
