// SPDX-License-Identifier: MIT
#include "store/note.h"

#include "objectstore/entity_description.h"
#include "store/task.h"

namespace hearthmark::store {

const objectstore::EntityDescription& Note::entity() {
    static const auto kDescription = objectstore::EntityDescription::of<Note>("Note")
                                         .attribute<&Note::id_>("id")
                                         .attribute<&Note::creationDate_>("creationDate")
                                         .attribute<&Note::text_>("text")
                                         .reference<&Note::task_, &Task::notes_>("task");
    return kDescription;
}

objectstore::FetchRequest<Note> Note::fetchRequest() {
    return {.sortDescriptor = {.key = "creationDate", .ascending = true}};
}

std::shared_ptr<Note> Note::create(const NoteData& data,
                                   objectstore::ManagedObjectContext& context) {
    auto note = context.insert<Note>();
    note->setCreationDate(data.creationDate);
    note->setId(data.id);
    note->setText(data.text);
    return note;
}

void Note::setTask(Task* task) {
    relate(entity().references().front(), task);
}

void Note::willChange() {
    if (task_ != nullptr) {
        task_->noteWillChange();
    }
}

}  // namespace hearthmark::store
