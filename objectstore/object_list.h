// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <vector>

#include "objectstore/managed_object.h"

namespace hearthmark::objectstore {

using ObjectHandles = std::vector<std::shared_ptr<ManagedObject>>;

// An immutable list of handles on objects, ascending by key. It is made of chunks, and a changed
// list shares those in which nothing changed: a save costs what it changes, not what there is.
class ObjectList {
 public:
    class Iterator {
     public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = std::shared_ptr<ManagedObject>;
        using difference_type = std::ptrdiff_t;
        using pointer = const value_type*;
        using reference = const value_type&;

        // The end of any list.
        Iterator() = default;

        reference operator*() const { return *position_; }
        pointer operator->() const { return position_; }
        Iterator& operator++() {
            if (++position_ == chunkEnd_) {
                enter(chunk_ + 1);
            }
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const Iterator& other) const { return position_ == other.position_; }

     private:
        friend class ObjectList;
        using Chunk = std::shared_ptr<const ObjectHandles>;

        Iterator(const Chunk* first, const Chunk* last) : last_(last) { enter(first); }

        void enter(const Chunk* chunk) {
            chunk_ = chunk;
            position_ = chunk != last_ ? (*chunk)->data() : nullptr;
            chunkEnd_ = chunk != last_ ? position_ + (*chunk)->size() : nullptr;
        }

        const Chunk* chunk_ = nullptr;
        const Chunk* last_ = nullptr;
        pointer position_ = nullptr;
        pointer chunkEnd_ = nullptr;
    };

    ObjectList() = default;
    // Requires: ascending by key.
    explicit ObjectList(ObjectHandles objects);

    // The list without the objects that are no longer managed, which `removed` names, and with
    // those inserted.
    ObjectList changed(const ObjectHandles& removed, ObjectHandles inserted) const;

    Iterator begin() const { return {chunks_.data(), chunks_.data() + chunks_.size()}; }
    Iterator end() const { return {}; }
    std::size_t size() const { return size_; }

    // Null where there is none.
    std::shared_ptr<ManagedObject> find(RowKey key) const;

 private:
    // None is empty.
    using Chunks = std::vector<std::shared_ptr<const ObjectHandles>>;

    // Where the key is if it is anywhere. Requires: a chunk that does not begin behind it.
    std::size_t chunkFor(RowKey key) const;
    void append(ObjectHandles objects);

    Chunks chunks_;
    std::size_t size_ = 0;
};

}  // namespace hearthmark::objectstore
