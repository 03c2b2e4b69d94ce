// SPDX-License-Identifier: MIT
#include "presentation/text_edit.h"

#include "base/text.h"
#include "store/note.h"

namespace hearthmark::presentation {

const std::optional<std::string>* storedText(const TextEdit& edit, const store::Task& task) {
    if (!edit.noteId) {
        return &task.name();
    }
    const store::Note* note = store::firstWithId(task.notes(), *edit.noteId);
    return note != nullptr ? &note->text() : nullptr;
}

void saveText(const TextEdit& edit, const store::Task& task,
              store::DataOperationsServiceProtocol& dataOperationsService) {
    const std::optional<std::string>* stored = storedText(edit, task);
    const std::string text(base::trimmed(edit.text));
    // What was not touched keeps the blanks that it may have.
    if (stored == nullptr || text.empty() || *stored == text || *stored == edit.text) {
        return;
    }
    const base::Uuid taskId = task.id().value();
    if (edit.noteId) {
        dataOperationsService.editNote(*edit.noteId, taskId, text);
    } else {
        dataOperationsService.renameTask(taskId, text);
    }
}

}  // namespace hearthmark::presentation
