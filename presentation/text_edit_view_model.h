// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/uuid.h"
#include "livedata/published.h"
#include "livedata/subscription.h"
#include "presentation/note_drafts.h"
#include "presentation/text_edit.h"
#include "store/data_operations_service_protocol.h"
#include "store/live_data.h"

namespace hearthmark::presentation {

struct TextEditViewState {
    // The task is there.
    bool canEdit = false;
    // What is being edited.
    std::optional<TextEdit> edit;

    bool operator==(const TextEditViewState&) const = default;
};

// Edits a task's name or one of its notes, one at a time. What is typed is kept with the task's
// drafts, which outlive this; it is not shown while its task or note is not there. Main thread.
class TextEditViewModel final : public std::enable_shared_from_this<TextEditViewModel> {
 public:
    // To be held by a shared pointer: its closures hold it weakly.
    TextEditViewModel(std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
                      std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveData,
                      NoteDrafts& drafts, const base::Uuid& taskId);

    livedata::Published<TextEditViewState>& viewState() { return viewState_; }

    // Called once.
    void startObserving();

    // What is being edited already goes on; another text is saved before.
    void editName() { begin({}); }
    void editNote(const base::Uuid& noteId) { begin(noteId); }

    // Takes over what the editor holds. No new state comes of that.
    void type(const std::string& text);

    // A name that is blank goes on being edited, a note that is blank is deleted.
    void save();
    // Leaves the text as it is stored.
    void leave();

 private:
    void begin(const std::optional<base::Uuid>& noteId);
    void show();
    const store::Task* task() const;
    // Takes it out first, since the save shows what there is to edit then.
    void finish();

    livedata::Published<TextEditViewState> viewState_;
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService_;
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory_;
    base::Uuid taskId_;
    // Never null.
    std::shared_ptr<std::optional<TextEdit>> edit_;
    std::unique_ptr<store::LiveDataProvider<store::Task>> tasksProvider_;
    livedata::Subscription tasksCancellable_;
};

}  // namespace hearthmark::presentation
