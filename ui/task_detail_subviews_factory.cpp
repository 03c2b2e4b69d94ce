// SPDX-License-Identifier: MIT
#include "ui/task_detail_subviews_factory.h"

#include <utility>

namespace hearthmark::ui {

TaskDetailSubviewsFactory::TaskDetailSubviewsFactory(
    presentation::NotesVMFactory notesVMFactory, exporting::ShareContainerVMFactory shareVMFactory)
    : notesVMFactory_(std::move(notesVMFactory)), shareVMFactory_(std::move(shareVMFactory)) {}

std::unique_ptr<NotesAdapter> TaskDetailSubviewsFactory::makeNotesView() const {
    return std::make_unique<NotesAdapter>(notesVMFactory_.makeViewModel());
}

std::unique_ptr<ShareContainerAdapter> TaskDetailSubviewsFactory::makeShareView() const {
    return std::make_unique<ShareContainerAdapter>(shareVMFactory_.makeViewModel());
}

}  // namespace hearthmark::ui
