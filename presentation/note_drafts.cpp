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

std::shared_ptr<NoteDrafts::Draft> NoteDrafts::draft(const base::Uuid& taskId) {
    // Of the tasks that were only looked at nothing stays.
    std::erase_if(drafts_,
                  [](const auto& each) { return !*each.second && each.second.use_count() == 1; });
    std::shared_ptr<Draft>& draft = drafts_[taskId];
    if (!draft) {
        draft = std::make_shared<Draft>();
    }
    return draft;
}

void NoteDrafts::save() {
    // A copy: who is told of a save may ask for a draft.
    for (const auto& [taskId, draft] : std::vector(drafts_.begin(), drafts_.end())) {
        if (!*draft ||
            store::taskWithId(tasksProvider_->currentItems()->value(), taskId) == nullptr) {
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
