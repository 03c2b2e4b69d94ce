// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "base/date.h"
#include "base/uuid.h"
#include "livedata/block.h"
#include "livedata/shared_list.h"

namespace hearthmark::presentation {

// What the notes section shows of one task and what can be done there.
struct NotesViewState {
    NotesViewState() = delete;

    struct CommittedNote {
        base::Uuid id;
        std::string noteText;
        livedata::Action onDeleteCommand;
        std::optional<base::Date> creationDate;

        bool operator==(const CommittedNote&) const = default;
    };

    // The note that is being written.
    struct PendingNote {
        // As far as it is typed.
        std::string noteText;
        std::string save;
        livedata::ActionOn<std::string> onSaveTap;
        std::string discard;
        livedata::Action onDiscardTap;
        // Takes over what the editor holds, at each change of it. No new state comes of that.
        livedata::ActionOn<std::string> onEdit;

        bool operator==(const PendingNote&) const = default;
    };

    struct View {
        // No note is being written.
        bool canAddNote;
        livedata::Action onAddNoteTapped;
        // From the newest to the oldest; the same list as before where nothing of it has changed.
        livedata::SharedList<CommittedNote> committedNotes;
        std::optional<PendingNote> pendingNote;

        bool operator==(const View&) const = default;
    };
};

}  // namespace hearthmark::presentation
