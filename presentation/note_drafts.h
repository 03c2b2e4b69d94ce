// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <optional>

#include "base/uuid.h"
#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"
#include "store/note_data.h"

namespace hearthmark::presentation {

// The notes that are being written, by task, for as long as the program runs. All models of a task
// share its draft, so each begins where the one before it was left, and what is here is always what
// was typed last. Main thread.
class NoteDrafts final {
 public:
    // Absent while none is being written.
    using Draft = std::optional<store::NoteData>;

    NoteDrafts(std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
               const store::LiveDataProvidingFactoryProtocol& liveDataFactory);

    std::shared_ptr<Draft> draft(const base::Uuid& taskId);

    // Before the program quits: makes a note of each draft that is not blank and whose task is
    // there, by a save of its own. The others stay.
    void save();

    // The note that the draft becomes with the text, without the blanks around it; absent where
    // that leaves nothing, and then the draft stays. Otherwise it is over.
    static std::optional<store::NoteData> finish(Draft& draft, const std::string& text);

 private:
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::unique_ptr<store::LiveDataProvider<store::Task>> tasksProvider_;
    std::map<base::Uuid, std::shared_ptr<Draft>> drafts_;
};

}  // namespace hearthmark::presentation
