// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

#include "livedata/any_core_data_live_provider.h"
#include "livedata/core_data_live_provider.h"
#include "objectstore/fetched_results_controller.h"
#include "objectstore/persistent_container.h"

namespace hearthmark::livedata {

// Makes providers of one entity.
template <class Entity>
class ProviderMaking {
 public:
    virtual ~ProviderMaking() = default;

 protected:
    virtual std::unique_ptr<AnyCoreDataLiveProvider<Entity>> make(
        std::type_identity<Entity> entity, objectstore::SortDescriptor sortDescriptor) const = 0;
};

// Makes live providers of the entities of a model.
template <class... Entities>
class LiveDataProvidingFactoryProtocol : public ProviderMaking<Entities>... {
 public:
    // A new provider at each call, not observing yet; consumers do not share them.
    template <class Entity>
    std::unique_ptr<AnyCoreDataLiveProvider<Entity>> makeProvider(
        objectstore::SortDescriptor sortDescriptor) const {
        return make(std::type_identity<Entity>(), std::move(sortDescriptor));
    }

 protected:
    using ProviderMaking<Entities>::make...;
};

namespace detail {

// Overrides make() for one entity after another; a virtual function cannot be a template.
template <class Protocol, class... Entities>
class MakingAll : public Protocol {
 public:
    explicit MakingAll(std::shared_ptr<objectstore::PersistentContainer> persistentContainer)
        : persistentContainer_(std::move(persistentContainer)) {}

 protected:
    std::shared_ptr<objectstore::PersistentContainer> persistentContainer_;
};

template <class Protocol, class Entity, class... Rest>
class MakingAll<Protocol, Entity, Rest...> : public MakingAll<Protocol, Rest...> {
 public:
    using MakingAll<Protocol, Rest...>::MakingAll;

 protected:
    using Protocol::make;
    std::unique_ptr<AnyCoreDataLiveProvider<Entity>> make(
        std::type_identity<Entity> /*entity*/,
        objectstore::SortDescriptor sortDescriptor) const override {
        return std::make_unique<AnyCoreDataLiveProvider<Entity>>(
            std::make_shared<CoreDataLiveProvider<Entity>>(this->persistentContainer_,
                                                           std::move(sortDescriptor)));
    }
};

}  // namespace detail

// Over one shared container.
template <class... Entities>
class LiveDataProvidingFactory final
    : public detail::MakingAll<LiveDataProvidingFactoryProtocol<Entities...>, Entities...> {
 public:
    using detail::MakingAll<LiveDataProvidingFactoryProtocol<Entities...>, Entities...>::MakingAll;
};

}  // namespace hearthmark::livedata
