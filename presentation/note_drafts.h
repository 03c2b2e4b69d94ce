// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <optional>

#include "base/uuid.h"
#include "presentation/text_edit.h"
#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"
#include "store/note_data.h"

namespace hearthmark::presentation {

// The notes that are being written and the texts that are being edited, by task, for as long as the
// program runs. All models of a task share its draft and its edit, so each begins where the one
// before it was left, and what is here is always what was typed last. Main thread.
class NoteDrafts final {
 public:
    // Absent while none is being written.
    using Draft = std::optional<store::NoteData>;
    using Edit = std::optional<TextEdit>;

    NoteDrafts(std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
               const store::LiveDataProvidingFactoryProtocol& liveDataFactory);

    std::shared_ptr<Draft> draft(const base::Uuid& taskId) { return shared(drafts_, taskId); }
    std::shared_ptr<Edit> edit(const base::Uuid& taskId) { return shared(edits_, taskId); }

    // Before the program quits: makes a note of each draft that is not blank and whose task is
    // there, by a save of its own, and saves each such edit. The others stay.
    void save();

    // The note that the draft becomes with the text, without the blanks around it; absent where
    // that leaves nothing, and then the draft stays. Otherwise it is over.
    static std::optional<store::NoteData> finish(Draft& draft, const std::string& text);

 private:
    template <class Text>
    using ByTask = std::map<base::Uuid, std::shared_ptr<std::optional<Text>>>;

    template <class Text>
    static std::shared_ptr<std::optional<Text>> shared(ByTask<Text>& texts,
                                                       const base::Uuid& taskId) {
        // Of the tasks that were only looked at nothing stays.
        std::erase_if(
            texts, [](const auto& each) { return !*each.second && each.second.use_count() == 1; });
        auto& text = texts[taskId];
        if (!text) {
            text = std::make_shared<std::optional<Text>>();
        }
        return text;
    }
    // Null where it is gone.
    const store::Task* task(const base::Uuid& id) const {
        return store::taskWithId(tasksProvider_->currentItems()->value(), id);
    }

    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::unique_ptr<store::LiveDataProvider<store::Task>> tasksProvider_;
    ByTask<store::NoteData> drafts_;
    ByTask<TextEdit> edits_;
};

}  // namespace hearthmark::presentation
