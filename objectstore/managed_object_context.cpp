// SPDX-License-Identifier: MIT
#include "objectstore/managed_object_context.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <limits>
#include <unordered_set>
#include <utility>

#include "objectstore/entity_description.h"
#include "objectstore/row_reader.h"
#include "objectstore/sqlite_store.h"

namespace hearthmark::objectstore {

namespace {

// Of objects that are loaded: made one by one each would take some 30 bytes beside itself.
constexpr std::size_t kBlockSize = 64;

std::vector<Value> columnValues(const ManagedObject& object) {
    const EntityDescription& entity = object.entityDescription();
    std::vector<Value> values;
    values.reserve(entity.attributes().size() + entity.references().size());
    for (const AttributeDescription& attribute : entity.attributes()) {
        values.push_back(attribute.value(object));
    }
    for (const ReferenceDescription& reference : entity.references()) {
        const ManagedObject* parent = reference.parent(object);
        values.emplace_back();
        if (parent != nullptr) {
            values.back() = parent->key();
        }
    }
    return values;
}

// The columns in which `now` differs from `stored`; all of them where nothing is stored.
std::vector<std::pair<std::size_t, Value>> differences(std::vector<Value> now,
                                                       const std::vector<Value>& stored) {
    std::vector<std::pair<std::size_t, Value>> columns;
    for (std::size_t column = 0; column < now.size(); ++column) {
        if (stored.empty() || now[column] != stored[column]) {
            columns.emplace_back(column, std::move(now[column]));
        }
    }
    return columns;
}

}  // namespace

bool SavedChanges::touches(const EntityDescription& entity) const {
    return std::ranges::find(entities, &entity) != entities.end();
}

// The objects of one entity.
struct ManagedObjectContext::Record {
    explicit Record(const EntityDescription& described) : entity(&described) {}

    const EntityDescription* entity;
    // The references of all entities that lead here.
    std::vector<const ReferenceDescription*> inverses;
    std::shared_ptr<const ObjectList> current = std::make_shared<const ObjectList>();
    ObjectHandles inserted;
    ObjectHandles removed;
    RowKey lastKey = 0;
    // Where references of the file lead though there is no row: a new one would take over what
    // belonged to another.
    std::unordered_set<RowKey> missing;

    // Of the block that the last object came from.
    ObjectHandles unused;

    std::shared_ptr<ManagedObject> make() {
        if (unused.empty()) {
            unused = entity->make(kBlockSize);
        }
        std::shared_ptr<ManagedObject> object = std::move(unused.back());
        unused.pop_back();
        return object;
    }

    RowKey nextKey() {
        while (lastKey < std::numeric_limits<RowKey>::max()) {
            if (!missing.contains(++lastKey)) {
                return lastKey;
            }
        }
        // Another program has used the last key there is: take the first free one.
        RowKey key = 1;
        while (current->find(key) != nullptr || missing.contains(key) ||
               std::ranges::find(inserted, key, &ManagedObject::key) != inserted.end()) {
            ++key;
        }
        return key;
    }
};

// Outlives the context while it tells, since an observer may drop the context.
struct ManagedObjectContext::Telling {
    Signal<const SavedChanges&> index;
    Signal<const SavedChanges&> renewal;
    Signal<const SavedChanges&> observer;
    std::deque<SavedChanges> waiting;
    bool isTelling = false;
};

ManagedObjectContext::ManagedObjectContext(std::unique_ptr<SqliteStore> store, const Model& model)
    : store_(std::move(store)), telling_(std::make_shared<Telling>()) {
    for (const EntityDescription* entity : model.entities) {
        records_.push_back(std::make_unique<Record>(*entity));
        for (const ReferenceDescription& reference : entity->references()) {
            record(reference.destination()).inverses.push_back(&reference);
        }
    }
    for (const std::unique_ptr<Record>& loaded : records_) {
        loadRows(*loaded);
    }
    store_->beginWriting();
}

ManagedObjectContext::~ManagedObjectContext() {
    for (const std::unique_ptr<Record>& ended : records_) {
        const auto release = [&ended](const std::shared_ptr<ManagedObject>& object) {
            object->willChange();
            for (const ReferenceDescription* inverse : ended->inverses) {
                inverse->unlinkChildren(*object);
            }
            object->context_ = nullptr;
        };
        std::ranges::for_each(*ended->current, release);
        std::ranges::for_each(ended->inserted, release);
    }
}

void ManagedObjectContext::loadRows(Record& record) {
    const std::vector<AttributeDescription>& attributes = record.entity->attributes();
    const std::vector<ReferenceDescription>& references = record.entity->references();
    ObjectHandles objects;
    store_->read(*record.entity, [&](const RowReader& row) {
        const std::shared_ptr<ManagedObject>& object = objects.emplace_back(record.make());
        object->key_ = row.integer(0).value();
        object->context_ = this;
        int column = 1;
        for (const AttributeDescription& attribute : attributes) {
            attribute.read(*object, row, column++);
        }
        for (const ReferenceDescription& reference : references) {
            if (const auto key = row.integer(column++)) {
                // A key that leads nowhere stays in the file and reads as absent.
                Record& destination = this->record(reference.destination());
                if (const auto parent = destination.current->find(*key)) {
                    reference.link(*object, parent.get());
                } else {
                    destination.missing.insert(*key);
                }
            }
        }
    });
    if (!objects.empty()) {
        record.lastKey = std::max<RowKey>(objects.back()->key(), 0);
    }
    record.current = std::make_shared<const ObjectList>(std::move(objects));
}

ManagedObjectContext::Record& ManagedObjectContext::record(const EntityDescription& entity) const {
    return **std::ranges::find(records_, &entity,
                               [](const std::unique_ptr<Record>& each) { return each->entity; });
}

std::shared_ptr<const ObjectList> ManagedObjectContext::current(
    const EntityDescription& entity) const {
    return record(entity).current;
}

std::shared_ptr<ManagedObject> ManagedObjectContext::insert(const EntityDescription& entity) {
    Record& target = record(entity);
    std::shared_ptr<ManagedObject> object = target.make();
    object->key_ = target.nextKey();
    object->context_ = this;
    object->isInserted_ = true;
    target.inserted.push_back(object);
    touched(object);
    return object;
}

std::shared_ptr<ManagedObject> ManagedObjectContext::handle(const ManagedObject& object) const {
    const Record& owner = record(object.entityDescription());
    return object.isInserted_
               ? *std::ranges::find(owner.inserted, &object, &std::shared_ptr<ManagedObject>::get)
               : owner.current->find(object.key());
}

void ManagedObjectContext::touched(std::shared_ptr<ManagedObject> object) {
    object->isTouched_ = true;
    auto stored = object->isInserted_ ? std::vector<Value>() : columnValues(*object);
    touched_.push_back({std::move(object), std::move(stored)});
}

void ManagedObjectContext::remove(ManagedObject& object) {
    if (object.context_ != this) {
        return;
    }
    const std::shared_ptr<ManagedObject> held = handle(object);
    object.touch();
    Record& owner = record(object.entityDescription());
    removeChildren(owner, object);
    for (const ReferenceDescription& reference : owner.entity->references()) {
        object.relate(reference, nullptr);
    }
    object.context_ = nullptr;
    if (object.isInserted_) {
        std::erase(owner.inserted, held);
    } else {
        owner.removed.push_back(held);
    }
}

void ManagedObjectContext::removeChildren(const Record& record, ManagedObject& object) {
    for (const ReferenceDescription* inverse : record.inverses) {
        const std::vector<ManagedObject*> children = inverse->children(object);
        inverse->unlinkChildren(object);
        for (ManagedObject* child : children) {
            remove(*child);
        }
    }
}

std::vector<RowChange> ManagedObjectContext::rowChanges() const {
    std::vector<RowChange> changes;
    std::vector<RowChange> removals;
    for (const auto& [object, stored] : touched_) {
        const EntityDescription* entity = &object->entityDescription();
        if (!object->isManaged()) {
            if (!object->isInserted_) {
                removals.push_back({RowChange::Kind::remove, entity, object->key_, {}});
            }
            continue;
        }
        auto columns = differences(columnValues(*object), stored);
        if (!columns.empty()) {
            changes.push_back(
                {object->isInserted_ ? RowChange::Kind::insert : RowChange::Kind::update, entity,
                 object->key_, std::move(columns)});
        }
    }
    // Children were touched after their parents; gone first, they need not let go of them.
    changes.insert(changes.end(), std::make_move_iterator(removals.rbegin()),
                   std::make_move_iterator(removals.rend()));
    return changes;
}

void ManagedObjectContext::save() {
    if (touched_.empty()) {
        return;
    }
    store_->write(rowChanges());

    const std::shared_ptr<Telling> telling = telling_;
    telling->waiting.push_back(settle());
    telling->index(telling->waiting.back());
    telling->renewal(telling->waiting.back());
    if (telling->isTelling) {
        return;
    }
    telling->isTelling = true;
    const std::unique_ptr<Telling, void (*)(Telling*)> ending(
        telling.get(), [](Telling* ended) { ended->isTelling = false; });
    while (!telling->waiting.empty()) {
        const SavedChanges told = std::move(telling->waiting.front());
        telling->waiting.pop_front();
        telling->observer(told);
    }
}

// Makes the saved changes the new ground: flags cleared, current sets with the new members.
SavedChanges ManagedObjectContext::settle() {
    SavedChanges changes;
    changes.objects.reserve(touched_.size());
    for (Touched& each : std::exchange(touched_, {})) {
        const std::shared_ptr<ManagedObject>& object =
            changes.objects.emplace_back(std::move(each.object));
        object->isTouched_ = false;
        object->isInserted_ = false;
        const EntityDescription& entity = object->entityDescription();
        if (!changes.touches(entity)) {
            changes.entities.push_back(&entity);
        }
    }
    for (const std::unique_ptr<Record>& each : records_) {
        if (!each->inserted.empty() || !each->removed.empty()) {
            each->current = std::make_shared<const ObjectList>(each->current->changed(
                std::exchange(each->removed, {}), std::exchange(each->inserted, {})));
        }
    }
    return changes;
}

Subscription ManagedObjectContext::connectIndex(ChangesSlot slot) {
    return telling_->index.connect(std::move(slot));
}

Subscription ManagedObjectContext::connectRenewal(ChangesSlot slot) {
    return telling_->renewal.connect(std::move(slot));
}

Subscription ManagedObjectContext::connectObserver(ChangesSlot slot) {
    return telling_->observer.connect(std::move(slot));
}

}  // namespace hearthmark::objectstore
