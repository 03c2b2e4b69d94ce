// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "export/share_container_vm_factory.h"
#include "presentation/view_model_factories.h"
#include "ui/detail/text_edit_adapter.h"
#include "ui/notes/notes_adapter.h"
#include "ui/sheets/share_container_adapter.h"

namespace hearthmark::ui {

// Makes the views in and over one task's detail pane, each with a model of its own.
struct TaskDetailSubviewsFactory {
    std::unique_ptr<NotesAdapter> makeNotesView() const {
        return std::make_unique<NotesAdapter>(notesVMFactory.makeViewModel());
    }
    std::unique_ptr<TextEditAdapter> makeTextEditView() const {
        return std::make_unique<TextEditAdapter>(textEditVMFactory.makeViewModel());
    }
    std::unique_ptr<ShareContainerAdapter> makeShareView() const {
        return std::make_unique<ShareContainerAdapter>(shareVMFactory.makeViewModel());
    }

    presentation::NotesVMFactory notesVMFactory;
    presentation::TextEditVMFactory textEditVMFactory;
    exporting::ShareContainerVMFactory shareVMFactory;
};

}  // namespace hearthmark::ui
