// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

namespace hearthmark::livedata {

// An immutable list that is shared by all who hold it: a copy costs nothing, and whoever is handed
// the list that he has already sees so at once.
template <class Item>
class SharedList {
 public:
    SharedList() = default;
    SharedList(std::initializer_list<Item> items) : SharedList(std::vector<Item>(items)) {}
    explicit SharedList(std::vector<Item> items)
        : items_(std::make_shared<const std::vector<Item>>(std::move(items))) {}

    auto begin() const { return all().begin(); }
    auto end() const { return all().end(); }
    std::size_t size() const { return all().size(); }
    bool empty() const { return all().empty(); }
    const Item& operator[](std::size_t index) const { return all()[index]; }

    // Not a copy of it, however equal.
    bool isSame(const SharedList& other) const { return items_ == other.items_; }

    bool operator==(const SharedList& other) const { return std::ranges::equal(*this, other); }

 private:
    const std::vector<Item>& all() const {
        static const std::vector<Item> kNone;
        return items_ ? *items_ : kNone;
    }

    std::shared_ptr<const std::vector<Item>> items_;
};

}  // namespace hearthmark::livedata
