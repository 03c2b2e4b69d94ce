// SPDX-License-Identifier: MIT
#include "objectstore/sqlite_schema.h"

#include <string_view>

#include "objectstore/entity_description.h"

namespace hearthmark::objectstore {

namespace {

std::string identifier(std::string_view name) {
    return '"' + std::string(name) + '"';
}

const std::string& columnName(const EntityDescription& entity, std::size_t column) {
    const std::size_t attributes = entity.attributes().size();
    return column < attributes ? entity.attributes()[column].name
                               : entity.references()[column - attributes].name;
}

std::string declarationOf(const AttributeDescription& attribute) {
    return identifier(attribute.name) + ' ' + attribute.declaration;
}

}  // namespace

std::vector<std::string> creationStatements(const Model& model) {
    std::vector<std::string> statements;
    for (const EntityDescription* entity : model.entities) {
        std::string table =
            "CREATE TABLE " + identifier(entity->name()) + " (pk INTEGER PRIMARY KEY";
        for (const AttributeDescription& attribute : entity->attributes()) {
            table += ", " + declarationOf(attribute);
        }
        std::vector<std::string> indexes;
        for (const ReferenceDescription& reference : entity->references()) {
            table += ", " + identifier(reference.name) + " INTEGER REFERENCES " +
                     identifier(reference.destination().name()) +
                     " ON DELETE SET NULL DEFERRABLE INITIALLY DEFERRED";
            indexes.push_back("CREATE INDEX " + identifier(entity->name() + '_' + reference.name) +
                              " ON " + identifier(entity->name()) + " (" +
                              identifier(reference.name) + ')');
        }
        statements.push_back(table + ')');
        statements.insert(statements.end(), indexes.begin(), indexes.end());
    }
    return statements;
}

std::string additionStatement(const EntityDescription& entity,
                              const AttributeDescription& attribute) {
    return "ALTER TABLE " + identifier(entity.name()) + " ADD COLUMN " + declarationOf(attribute);
}

std::string selection(const EntityDescription& entity) {
    std::string statement = "SELECT pk";
    for (std::size_t column = 0; column < entity.attributes().size() + entity.references().size();
         ++column) {
        statement += ", " + identifier(columnName(entity, column));
    }
    return statement + " FROM " + identifier(entity.name()) + " ORDER BY pk";
}

std::string statementFor(const RowChange& change) {
    const std::string table = identifier(change.entity->name());
    std::string names;
    std::string marks;
    std::string assignments;
    for (const auto& [column, value] : change.columns) {
        const std::string name = identifier(columnName(*change.entity, column));
        names += name + ", ";
        marks += "?, ";
        assignments += (assignments.empty() ? "" : ", ") + name + " = ?";
    }
    switch (change.kind) {
        case RowChange::Kind::insert:
            return "INSERT INTO " + table + " (" + names + "pk) VALUES (" + marks + "?)";
        case RowChange::Kind::update:
            return "UPDATE " + table + " SET " + assignments + " WHERE pk = ?";
        case RowChange::Kind::remove:
            return "DELETE FROM " + table + " WHERE pk = ?";
    }
    return {};
}

}  // namespace hearthmark::objectstore
