// SPDX-License-Identifier: MIT
#include "presentation/note_drafts.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"

namespace hearthmark::presentation {

NoteDrafts::NoteDrafts(std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
                       const store::LiveDataProvidingFactoryProtocol& liveDataFactory)
    : dataOperationsService_(std::move(dataOperationsService)),
      tasksProvider_(
          liveDataFactory.makeProvider<store::Task>({.key = "creationDate", .ascending = true})) {
    tasksProvider_->startObserving();
}

void NoteDrafts::save() {
    // Copies: who is told of a save may ask for a draft.
    for (const auto& [taskId, edit] : std::vector(edits_.begin(), edits_.end())) {
        const store::Task* const task = this->task(taskId);
        if (*edit && task != nullptr) {
            saveText(**edit, *task, *dataOperationsService_);
        }
    }
    for (const auto& [taskId, draft] : std::vector(drafts_.begin(), drafts_.end())) {
        if (!*draft || task(taskId) == nullptr) {
            continue;
        }
        const std::string text = (*draft)->text;
        if (const auto note = finish(*draft, text)) {
            dataOperationsService_->addNote(*note, taskId);
        }
    }
}

std::optional<store::NoteData> NoteDrafts::finish(Draft& draft, const std::string& text) {
    const std::string_view trimmed = base::trimmed(text);
    if (!draft || trimmed.empty()) {
        return std::nullopt;
    }
    // Taken out first, since the state that the save brings must not show the note twice.
    store::NoteData note = *std::exchange(draft, std::nullopt);
    note.text = trimmed;
    return note;
}

}  // namespace hearthmark::presentation
