// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractListModel>
#include <QByteArray>
#include <QHash>
#include <QVariant>
#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "ui/rows/row_key.h"

namespace hearthmark::ui {

// A field of a row as views know it: its name in QML, what they are given, and whether two states
// of the row differ in it.
template <class Row>
struct RowRole {
    const char* name;
    QVariant (*value)(const Row& row);
    bool (*differs)(const Row& a, const Row& b);
};

template <auto Member>
struct RowField;

template <class Row_, class Value, Value Row_::*Member>
struct RowField<Member> {
    using Row = Row_;
    static QVariant value(const Row& row) { return row.*Member; }
    static bool differs(const Row& a, const Row& b) { return a.*Member != b.*Member; }
};

// The field of a member.
template <auto Member>
RowRole<typename RowField<Member>::Row> role(const char* name) {
    return {name, &RowField<Member>::value, &RowField<Member>::differs};
}

// The kind in its key, which a row keeps.
template <class Row>
RowRole<Row> kindRole() {
    return {"kind", [](const Row& row) { return QVariant(row.key.kind); },
            [](const Row& /*a*/, const Row& /*b*/) { return false; }};
}

// A list of rows that changes from one whole state to the next while touching only what differs, so
// that a rebuild each second moves no scroll bar, closes no menu and drops no focus.
//
// Row must offer:
//   `RowKey key`, unique within one list;
//   `static const std::vector<RowRole<Row>>& roles()`, all that views see of it; the first is
//   Qt::UserRole, and so on;
//   and may have `void settle(Row* shown)`, called before it takes the place of the row with the
//   same key, or comes anew.
//
// What derives from it names it by the macro: the QML tools know no base that is a template.
#ifdef Q_MOC_RUN
#define HEARTHMARK_ROW_LIST_MODEL(Row) QAbstractListModel
#else
#define HEARTHMARK_ROW_LIST_MODEL(Row) RowListModel<Row>
#endif
template <class Row>
class RowListModel : public QAbstractListModel {
 public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }

    QVariant data(const QModelIndex& index, int role) const override {
        const Row* row = rowAt(index.row());
        const auto place = static_cast<std::size_t>(role - Qt::UserRole);
        const bool isThere = row != nullptr && role >= Qt::UserRole && place < Row::roles().size();
        return isThere ? Row::roles()[place].value(*row) : QVariant();
    }

    QHash<int, QByteArray> roleNames() const override {
        QHash<int, QByteArray> names;
        for (const RowRole<Row>& role : Row::roles()) {
            names.insert(Qt::UserRole + static_cast<int>(names.size()), role.name);
        }
        return names;
    }

    // Of the row's key; absent where a view asks with an index of an older state.
    std::optional<base::Uuid> idAt(int index) const {
        const Row* row = rowAt(index);
        return row != nullptr ? std::optional(row->key.id) : std::nullopt;
    }

    // Answers whether rows came, went or moved.
    bool update(std::vector<Row>&& next) { return update(0, rows_.size(), std::move(next)); }

 protected:
    const std::vector<Row>& rows() const { return rows_; }

    // Null where a view asks with an index of an older state.
    const Row* rowAt(int index) const {
        const bool exists = index >= 0 && static_cast<std::size_t>(index) < rows_.size();
        return exists ? &rows_[static_cast<std::size_t>(index)] : nullptr;
    }

    // Of every row what views see in the role of that name alone. Costs less than new rows do.
    template <class Change>
    void changeAll(const char* name, const Change& change) {
        std::ranges::for_each(rows_, change);
        if (!rows_.empty()) {
            emit dataChanged(index(0), index(static_cast<int>(rows_.size()) - 1),
                             {roleNames().key(name)});
        }
    }

    // Only from `first` to before `last`. The rows beside them stay, and have other keys.
    bool update(std::size_t first, std::size_t last, std::vector<Row>&& next) {
        auto from = next.begin();
        auto to = next.end();
        // Most changes leave most rows in their places.
        for (; first < last && from != to && rows_[first].key == from->key; ++first, ++from) {
            assign(first, std::move(*from));
        }
        for (; first < last && from != to && rows_[last - 1].key == std::prev(to)->key; --last) {
            assign(last - 1, std::move(*--to));
        }
        return (first != last || from != to) && rearrange(first, last, from, to);
    }

 private:
    // Of the next state.
    using Places = std::unordered_map<RowKey, std::size_t, RowKey::Hash>;
    using Iterator = typename std::vector<Row>::iterator;

    // What comes and goes in more places than that is not worth to be told one by one: a view looks
    // through all that it was told before at each. Of 2,000 rows each second going took 30 ms, and
    // with the few visible ones made anew 8.
    static constexpr std::size_t kMostRuns = 32;

    bool rearrange(std::size_t first, std::size_t last, Iterator from, Iterator to) {
        Places places;
        places.reserve(static_cast<std::size_t>(to - from));
        for (auto row = from; row != to; ++row) {
            places.emplace(row->key, first + static_cast<std::size_t>(row - from));
        }
        std::unordered_set<RowKey, RowKey::Hash> present;
        for (std::size_t index = first; index < last; ++index) {
            present.insert(rows_[index].key);
        }
        const auto isPresent = [&present](const Row& row) { return present.contains(row.key); };
        const auto isMissing = [&places](const Row& row) { return !places.contains(row.key); };
        if (runs(at(first), at(last), isMissing) + runs(from, to, std::not_fn(isPresent)) >
            kMostRuns) {
            remove(first, last);
            insert(first, from, to);
            return true;
        }
        std::size_t end = removeAll(first, last, isMissing);
        bool isRearranged = end != last;
        std::size_t index = first;
        for (auto row = from; row != to;) {
            if (const auto known = std::find_if(row, to, isPresent); known != row) {
                insert(index, row, known);
                index += static_cast<std::size_t>(known - row);
                end += static_cast<std::size_t>(known - row);
                isRearranged = true;
                row = known;
            } else {
                isRearranged |= place(index++, end, std::move(*row++), places);
            }
        }
        return isRearranged;
    }

    Iterator at(std::size_t index) { return rows_.begin() + static_cast<std::ptrdiff_t>(index); }

    // How often rows of that kind begin.
    template <class Kind>
    static std::size_t runs(Iterator row, Iterator last, const Kind& isOfKind) {
        std::size_t count = 0;
        for (bool wasOfKind = false; row != last; ++row) {
            const bool is = isOfKind(*row);
            count += is && !wasOfKind ? 1 : 0;
            wasOfKind = is;
        }
        return count;
    }

    // Answers where those that stay end.
    template <class Kind>
    std::size_t removeAll(std::size_t index, std::size_t end, const Kind& isOfKind) {
        while (true) {
            const auto first = std::find_if(at(index), at(end), isOfKind);
            if (first == at(end)) {
                return end;
            }
            const auto last = std::find_if_not(first, at(end), isOfKind);
            index = static_cast<std::size_t>(first - rows_.begin());
            end -= static_cast<std::size_t>(last - first);
            remove(index, static_cast<std::size_t>(last - rows_.begin()));
        }
    }

    void remove(std::size_t first, std::size_t last) {
        if (first < last) {
            beginRemoveRows({}, static_cast<int>(first), static_cast<int>(last) - 1);
            rows_.erase(at(first), at(last));
            endRemoveRows();
        }
    }

    void insert(std::size_t index, Iterator first, Iterator last) {
        if (first == last) {
            return;
        }
        std::for_each(first, last, [](Row& row) { settle(row, nullptr); });
        beginInsertRows({}, static_cast<int>(index),
                        static_cast<int>(index) + static_cast<int>(last - first) - 1);
        rows_.insert(at(index), std::make_move_iterator(first), std::make_move_iterator(last));
        endInsertRows();
    }

    // A row that is there, at `index` or behind it.
    bool place(std::size_t index, std::size_t end, Row&& next, const Places& places) {
        const int row = static_cast<int>(index);
        const auto found = std::ranges::find(at(index), at(end), next.key, &Row::key);
        const bool isMoved = found != at(index);
        if (found == at(index) + 1) {
            // One row that goes down, rather than all below it going up.
            moveDown(index, std::min(places.at(rows_[index].key), end - 1));
        } else if (isMoved) {
            const int from = static_cast<int>(found - rows_.begin());
            beginMoveRows({}, from, from, {}, row);
            std::rotate(at(index), found, found + 1);
            endMoveRows();
        }
        assign(index, std::move(next));
        return isMoved;
    }

    void moveDown(std::size_t from, std::size_t to) {
        beginMoveRows({}, static_cast<int>(from), static_cast<int>(from), {},
                      static_cast<int>(to) + 1);
        std::rotate(at(from), at(from) + 1, at(to) + 1);
        endMoveRows();
    }

    void assign(std::size_t index, Row&& next) {
        Row& shown = rows_[index];
        settle(next, &shown);
        QList<int> changed;
        for (int role = Qt::UserRole; const RowRole<Row>& each : Row::roles()) {
            if (each.differs(shown, next)) {
                changed.append(role);
            }
            ++role;
        }
        shown = std::move(next);
        if (!changed.isEmpty()) {
            const QModelIndex place = this->index(static_cast<int>(index));
            emit dataChanged(place, place, changed);
        }
    }

    static void settle(Row& next, Row* shown) {
        if constexpr (requires { next.settle(shown); }) {
            next.settle(shown);
        }
    }

    std::vector<Row> rows_;
};

}  // namespace hearthmark::ui
