// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "objectstore/column.h"
#include "objectstore/object_list.h"

namespace hearthmark::objectstore {

// One attribute of an entity, stored in the column of its name.
struct AttributeDescription {
    std::string name;
    std::string declaration;
    void (*read)(ManagedObject& object, const RowReader& row, int column);
    Value (*value)(const ManagedObject& object);
};

// A to-one relationship stored in a column, together with its inverse, which is either a list (one
// to many) or a pointer (one to one) in the destination. With the destination the object is
// deleted. The functions do not touch the objects.
struct ReferenceDescription {
    std::string name;
    const EntityDescription& (*destination)();
    bool isToMany;  // seen from the destination
    ManagedObject* (*parent)(const ManagedObject& child);
    // Changes both ends. A one-to-one parent lets go of the child that it had.
    void (*link)(ManagedObject& child, ManagedObject* parent);
    std::vector<ManagedObject*> (*children)(const ManagedObject& parent);
    // Lets go of all children at once; cheaper than one after another.
    void (*unlinkChildren)(ManagedObject& parent);
};

// Everything that the store needs to know of an entity, said once: its name, which is its table's
// too, its attributes and its references. Drives loading, saving and the schema.
class EntityDescription {
 public:
    template <class Object>
    static EntityDescription of(std::string name);

    // Adds an attribute held in a member of Object.
    template <auto Member>
    EntityDescription&& attribute(std::string name) &&;

    // Adds a reference held in `Parent* Child::Member`, whose inverse is `Inverse` in Parent: a
    // `std::vector<Child*>` or a `Child*`.
    template <auto Member, auto Inverse>
    EntityDescription&& reference(std::string name) &&;

    const std::string& name() const { return name_; }
    const std::vector<AttributeDescription>& attributes() const { return attributes_; }
    const std::vector<ReferenceDescription>& references() const { return references_; }
    // New objects, made in one block, which lives as long as one of them.
    ObjectHandles make(std::size_t count) const { return make_(count); }

 private:
    EntityDescription(std::string name, ObjectHandles (*maker)(std::size_t))
        : name_(std::move(name)), make_(maker) {}

    std::string name_;
    ObjectHandles (*make_)(std::size_t);
    std::vector<AttributeDescription> attributes_;
    std::vector<ReferenceDescription> references_;
};

namespace detail {

template <class Member>
struct MemberTraits;
template <class Owner_, class Value_>
struct MemberTraits<Value_ Owner_::*> {
    using Owner = Owner_;
    using Value = Value_;
};

template <auto Member>
auto& memberOf(ManagedObject& object) {
    return static_cast<typename MemberTraits<decltype(Member)>::Owner&>(object).*Member;
}
template <auto Member>
const auto& memberOf(const ManagedObject& object) {
    return static_cast<const typename MemberTraits<decltype(Member)>::Owner&>(object).*Member;
}

// The two ends of one relationship, by the members that hold them.
template <auto Member, auto Inverse>
struct Ends {
    using Child = typename MemberTraits<decltype(Member)>::Owner;
    using Parent = std::remove_pointer_t<typename MemberTraits<decltype(Member)>::Value>;
    static constexpr bool kIsToMany =
        !std::is_pointer_v<typename MemberTraits<decltype(Inverse)>::Value>;

    static ManagedObject* parent(const ManagedObject& child) { return memberOf<Member>(child); }

    static void link(ManagedObject& child, ManagedObject* parent) {
        Parent*& held = memberOf<Member>(child);
        if (held != nullptr) {
            if constexpr (kIsToMany) {
                std::erase(memberOf<Inverse>(*held), static_cast<Child*>(&child));
            } else {
                memberOf<Inverse>(*held) = nullptr;
            }
        }
        held = static_cast<Parent*>(parent);
        if (held == nullptr) {
            return;
        }
        if constexpr (kIsToMany) {
            memberOf<Inverse>(*held).push_back(static_cast<Child*>(&child));
        } else {
            if (Child* previous = memberOf<Inverse>(*held); previous != nullptr) {
                memberOf<Member>(*previous) = nullptr;
            }
            memberOf<Inverse>(*held) = static_cast<Child*>(&child);
        }
    }

    static std::vector<ManagedObject*> children(const ManagedObject& parent) {
        const auto& inverse = memberOf<Inverse>(parent);
        if constexpr (kIsToMany) {
            return {inverse.begin(), inverse.end()};
        } else {
            return inverse != nullptr ? std::vector<ManagedObject*>{inverse}
                                      : std::vector<ManagedObject*>{};
        }
    }

    static void unlinkChildren(ManagedObject& parent) {
        for (ManagedObject* child : children(parent)) {
            memberOf<Member>(*child) = nullptr;
        }
        memberOf<Inverse>(parent) = {};
    }
};

}  // namespace detail

template <class Object>
EntityDescription EntityDescription::of(std::string name) {
    return {std::move(name), [](std::size_t count) {
                const auto block = std::make_shared<std::vector<Object>>(count);
                ObjectHandles objects;
                for (Object& object : *block) {
                    objects.emplace_back(block, &object);
                }
                return objects;
            }};
}

template <auto Member>
EntityDescription&& EntityDescription::attribute(std::string name) && {
    using Attribute = typename detail::MemberTraits<decltype(Member)>::Value;
    attributes_.push_back({std::move(name), Column<Attribute>::kDeclaration,
                           [](ManagedObject& object, const RowReader& row, int column) {
                               detail::memberOf<Member>(object) =
                                   Column<Attribute>::read(row, column);
                           },
                           [](const ManagedObject& object) {
                               return Column<Attribute>::value(detail::memberOf<Member>(object));
                           }});
    return std::move(*this);
}

template <auto Member, auto Inverse>
EntityDescription&& EntityDescription::reference(std::string name) && {
    using Ends = detail::Ends<Member, Inverse>;
    references_.push_back({std::move(name), &Ends::Parent::entity, Ends::kIsToMany, &Ends::parent,
                           &Ends::link, &Ends::children, &Ends::unlinkChildren});
    return std::move(*this);
}

}  // namespace hearthmark::objectstore
