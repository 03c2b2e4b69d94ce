// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/date.h"
#include "base/uuid.h"
#include "objectstore/fetched_results_controller.h"
#include "objectstore/managed_object.h"
#include "objectstore/managed_object_context.h"
#include "store/note_data.h"

namespace hearthmark::store {

class Task;

// A note on a task, or on none once it was taken out of its task's set.
class Note final : public objectstore::ManagedObject {
 public:
    static const objectstore::EntityDescription& entity();
    static objectstore::FetchRequest<Note> fetchRequest();

    // A new note; the caller attaches the task.
    static std::shared_ptr<Note> create(const NoteData& data,
                                        objectstore::ManagedObjectContext& context);

    const objectstore::EntityDescription& entityDescription() const override { return entity(); }

    void setId(std::optional<base::Uuid> id) { assign(id_, id); }
    void setCreationDate(std::optional<base::Date> date) { assign(creationDate_, date); }
    void setText(std::optional<std::string> text) { assign(text_, std::move(text)); }
    void setTask(Task* task);

    const std::optional<base::Uuid>& id() const { return id_; }
    std::optional<base::Date> creationDate() const { return creationDate_; }
    const std::optional<std::string>& text() const { return text_; }
    Task* task() const { return task_; }

 private:
    // What the task remembers of its notes changes with them.
    void willChange() override;

    std::optional<base::Uuid> id_;
    base::OptionalDate creationDate_;
    std::optional<std::string> text_;
    Task* task_ = nullptr;
};

}  // namespace hearthmark::store
