// SPDX-License-Identifier: MIT
#include "objectstore/object_list.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <iterator>
#include <set>
#include <utility>

namespace hearthmark::objectstore {

namespace {

constexpr std::size_t kChunkSize = 512;

constexpr auto kByKey = [](const std::shared_ptr<ManagedObject>& object) { return object->key(); };

RowKey firstKey(const std::shared_ptr<const ObjectHandles>& chunk) {
    return chunk->front()->key();
}

// How far a key lies behind another that is not greater.
std::uint64_t distance(RowKey from, RowKey to) {
    return static_cast<std::uint64_t>(to) - static_cast<std::uint64_t>(from);
}

}  // namespace

ObjectList::ObjectList(ObjectHandles objects) {
    append(std::move(objects));
}

void ObjectList::append(ObjectHandles objects) {
    auto next = objects.begin();
    while (next != objects.end()) {
        ObjectHandles chunk;
        chunk.reserve(kChunkSize);
        if (!chunks_.empty() && chunks_.back()->size() < kChunkSize) {
            chunk = *chunks_.back();
            chunks_.pop_back();
        }
        const auto room = static_cast<std::ptrdiff_t>(kChunkSize - chunk.size());
        const auto last = next + std::min(room, objects.end() - next);
        chunk.insert(chunk.end(), std::move_iterator(next), std::move_iterator(last));
        chunks_.push_back(std::make_shared<const ObjectHandles>(std::move(chunk)));
        next = last;
    }
    size_ += objects.size();
}

ObjectList ObjectList::changed(const ObjectHandles& removed, ObjectHandles inserted) const {
    ObjectList list = *this;
    list.size_ -= removed.size();
    std::set<std::size_t, std::greater<>> affected;
    for (const std::shared_ptr<ManagedObject>& object : removed) {
        affected.insert(chunkFor(object->key()));
    }
    for (const std::size_t index : affected) {
        ObjectHandles kept = *chunks_[index];
        std::erase_if(kept, [](const auto& object) { return !object->isManaged(); });
        const auto place = list.chunks_.begin() + static_cast<std::ptrdiff_t>(index);
        if (kept.empty()) {
            list.chunks_.erase(place);
        } else {
            *place = std::make_shared<const ObjectHandles>(std::move(kept));
        }
    }

    std::ranges::sort(inserted, {}, kByKey);
    const bool followsAll = inserted.empty() || list.chunks_.empty() ||
                            inserted.front()->key() > list.chunks_.back()->back()->key();
    if (!followsAll) {
        // Only where the keys have been used up and free ones are taken.
        inserted.insert(inserted.end(), list.begin(), list.end());
        std::ranges::sort(inserted, {}, kByKey);
        return ObjectList(std::move(inserted));
    }
    list.append(std::move(inserted));
    return list;
}

std::shared_ptr<ManagedObject> ObjectList::find(RowKey key) const {
    if (chunks_.empty() || key < firstKey(chunks_.front())) {
        return nullptr;
    }
    const ObjectHandles& chunk = *chunks_[chunkFor(key)];
    // Keys mostly run without a gap, so the place is tried before it is searched.
    const std::uint64_t offset = distance(chunk.front()->key(), key);
    if (offset < chunk.size() && chunk[offset]->key() == key) {
        return chunk[offset];
    }
    const auto found = std::ranges::lower_bound(chunk, key, {}, kByKey);
    return found != chunk.end() && (*found)->key() == key ? *found : nullptr;
}

std::size_t ObjectList::chunkFor(RowKey key) const {
    const std::uint64_t guess = distance(firstKey(chunks_.front()), key) / kChunkSize;
    if (guess < chunks_.size() && firstKey(chunks_[guess]) <= key &&
        (guess + 1 == chunks_.size() || key < firstKey(chunks_[guess + 1]))) {
        return guess;
    }
    const auto behind = std::ranges::upper_bound(chunks_, key, {}, &firstKey);
    return static_cast<std::size_t>(behind - chunks_.begin()) - 1;
}

}  // namespace hearthmark::objectstore
