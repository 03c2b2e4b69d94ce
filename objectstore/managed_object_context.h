// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "objectstore/model.h"
#include "objectstore/object_set.h"
#include "objectstore/signal.h"

namespace hearthmark::objectstore {

class SqliteStore;
struct RowChange;

// What one save changed.
struct SavedChanges {
    // Every object touched: inserted, assigned to, related or deleted.
    ObjectHandles objects;
    // The entities of those objects, each once.
    std::vector<const EntityDescription*> entities;

    bool touches(const EntityDescription& entity) const;
};

// Holds every object of a store, once for each row, and writes their changes when told to. All
// objects are loaded when it is made; reading never touches the disk. One thread.
//
// After a save has reached the disk it is told in three rounds: first the indexes take the changed
// objects, then all current sets are renewed, then the observers are told, in the order in which
// they subscribed. An observer may do whatever it likes, save included: the sets are renewed by
// that save at once, and its observers are told when the present round is over.
class ManagedObjectContext {
 public:
    // Throws StoreError where a row cannot be read.
    ManagedObjectContext(std::unique_ptr<SqliteStore> store, const Model& model);
    ManagedObjectContext(const ManagedObjectContext&) = delete;
    ManagedObjectContext& operator=(const ManagedObjectContext&) = delete;
    ~ManagedObjectContext();

    // A new object of the entity, part of the store from the next save on.
    template <class Object>
    std::shared_ptr<Object> insert() {
        return std::static_pointer_cast<Object>(insert(Object::entity()));
    }

    // Takes the object out of all relationships at once and out of the store with the next save,
    // together with the objects that its delete rules name. Does nothing if it is not managed here.
    void remove(ManagedObject& object);

    // Writes what differs, in one transaction, and tells. Where nothing was touched, nothing is
    // written and nobody is told. Throws StoreError where the store fails; the context is then of
    // no further use.
    void save();

    // The objects of an entity as of the last save.
    template <class Object>
    ObjectSet<Object> objects() const {
        return ObjectSet<Object>(current(Object::entity()));
    }

    using ChangesSlot = Signal<const SavedChanges&>::Slot;

    // The three rounds.
    Subscription connectIndex(ChangesSlot slot);
    Subscription connectRenewal(ChangesSlot slot);
    Subscription connectObserver(ChangesSlot slot);

 private:
    friend class ManagedObject;
    struct Record;
    struct Telling;
    struct Touched {
        std::shared_ptr<ManagedObject> object;
        // The columns as the store holds them; empty where it was inserted.
        std::vector<Value> stored;
    };

    std::shared_ptr<ManagedObject> insert(const EntityDescription& entity);
    std::shared_ptr<const ObjectList> current(const EntityDescription& entity) const;
    void loadRows(Record& record);
    std::shared_ptr<ManagedObject> handle(const ManagedObject& object) const;
    void touched(std::shared_ptr<ManagedObject> object);
    void removeChildren(const Record& record, ManagedObject& object);
    Record& record(const EntityDescription& entity) const;
    std::vector<RowChange> rowChanges() const;
    SavedChanges settle();

    std::unique_ptr<SqliteStore> store_;
    std::vector<std::unique_ptr<Record>> records_;
    std::vector<Touched> touched_;
    std::shared_ptr<Telling> telling_;
};

}  // namespace hearthmark::objectstore
