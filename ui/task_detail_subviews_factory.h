// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "export/share_container_vm_factory.h"
#include "presentation/view_model_factories.h"
#include "ui/notes_adapter.h"
#include "ui/share_container_adapter.h"

namespace hearthmark::ui {

// Makes the views in and over one task's detail pane, each with a model of its own.
class TaskDetailSubviewsFactory {
 public:
    TaskDetailSubviewsFactory(presentation::NotesVMFactory notesVMFactory,
                              exporting::ShareContainerVMFactory shareVMFactory);

    std::unique_ptr<NotesAdapter> makeNotesView() const;
    std::unique_ptr<ShareContainerAdapter> makeShareView() const;

 private:
    presentation::NotesVMFactory notesVMFactory_;
    exporting::ShareContainerVMFactory shareVMFactory_;
};

}  // namespace hearthmark::ui
