// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractListModel>
#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

#include "ui/row_key.h"

namespace hearthmark::ui {

// A list of rows that changes from one whole state to the next while touching only what differs, so
// that a rebuild each second moves no scroll bar, closes no menu and drops no focus.
//
// Row must offer:
//   `RowKey key`, unique within one list;
//   `QList<int> assign(Row&& next)`, which takes over a row with the same key, always with its
//   actions, and returns the roles whose shown value differs.
template <class Row>
class RowListModel : public QAbstractListModel {
 public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }

    // Answers whether rows came, went or moved.
    bool update(std::vector<Row>&& next) {
        if (rows_.empty()) {
            insertAll(std::move(next));
            return !rows_.empty();
        }
        Places places;
        places.reserve(next.size());
        for (std::size_t index = 0; index < next.size(); ++index) {
            places.emplace(next[index].key, index);
        }
        bool isRearranged = removeMissing(places);
        for (std::size_t index = 0; index < next.size(); ++index) {
            isRearranged |= place(index, std::move(next[index]), places);
        }
        return isRearranged;
    }

    // Leaves the model without rows; for a model that only carries them to another one.
    std::vector<Row> takeRows() && { return std::move(rows_); }

 protected:
    const std::vector<Row>& rows() const { return rows_; }

    // Null where a view asks with an index of an older state.
    const Row* rowAt(int index) const {
        const bool exists = index >= 0 && static_cast<std::size_t>(index) < rows_.size();
        return exists ? &rows_[static_cast<std::size_t>(index)] : nullptr;
    }

 private:
    // Of the next state.
    using Places = std::unordered_map<RowKey, std::size_t, RowKey::Hash>;

    void insertAll(std::vector<Row>&& next) {
        if (next.empty()) {
            return;
        }
        beginInsertRows({}, 0, static_cast<int>(next.size()) - 1);
        rows_ = std::move(next);
        endInsertRows();
    }

    bool removeMissing(const Places& places) {
        const auto isMissing = [&places](const Row& row) { return !places.contains(row.key); };
        auto first = std::ranges::find_if(rows_, isMissing);
        const bool isAnyMissing = first != rows_.end();
        while (first != rows_.end()) {
            const auto last = std::find_if_not(first, rows_.end(), isMissing);
            beginRemoveRows({}, static_cast<int>(first - rows_.begin()),
                            static_cast<int>(last - rows_.begin()) - 1);
            first = rows_.erase(first, last);
            endRemoveRows();
            first = std::find_if(first, rows_.end(), isMissing);
        }
        return isAnyMissing;
    }

    bool place(std::size_t index, Row&& next, const Places& places) {
        const int row = static_cast<int>(index);
        const auto position = rows_.begin() + static_cast<std::ptrdiff_t>(index);
        const auto found = std::find_if(position, rows_.end(), [&next](const Row& candidate) {
            return candidate.key == next.key;
        });
        if (found == rows_.end()) {
            beginInsertRows({}, row, row);
            rows_.insert(position, std::move(next));
            endInsertRows();
            return true;
        }
        const bool isMoved = found != position;
        if (found == position + 1) {
            // One row that goes down, rather than all below it going up.
            moveDown(index, std::min(places.at(position->key), rows_.size() - 1));
        } else if (isMoved) {
            const int from = static_cast<int>(found - rows_.begin());
            beginMoveRows({}, from, from, {}, row);
            std::rotate(position, found, found + 1);
            endMoveRows();
        }
        assign(index, std::move(next));
        return isMoved;
    }

    void moveDown(std::size_t from, std::size_t to) {
        const auto position = rows_.begin() + static_cast<std::ptrdiff_t>(from);
        const int row = static_cast<int>(from);
        beginMoveRows({}, row, row, {}, static_cast<int>(to) + 1);
        std::rotate(position, position + 1, rows_.begin() + static_cast<std::ptrdiff_t>(to) + 1);
        endMoveRows();
    }

    void assign(std::size_t index, Row&& next) {
        if (const QList<int> roles = rows_[index].assign(std::move(next)); !roles.isEmpty()) {
            const QModelIndex changed = this->index(static_cast<int>(index));
            emit dataChanged(changed, changed, roles);
        }
    }

    std::vector<Row> rows_;
};

}  // namespace hearthmark::ui
