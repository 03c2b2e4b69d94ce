// SPDX-License-Identifier: MIT
#include "presentation/text_edit_view_model.h"

#include <utility>

#include "base/text.h"
#include "base/weakly.h"

namespace hearthmark::presentation {

TextEditViewModel::TextEditViewModel(
    std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService,
    std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveData, NoteDrafts& drafts,
    const base::Uuid& taskId)
    : dataOperationsService_(std::move(dataOperationsService)),
      liveDataFactory_(std::move(liveData)),
      taskId_(taskId),
      edit_(drafts.edit(taskId)) {}

void TextEditViewModel::startObserving() {
    tasksProvider_ =
        liveDataFactory_->makeProvider<store::Task>({.key = "creationDate", .ascending = true});
    tasksCancellable_ = tasksProvider_->currentItems()->subscribe(base::weakly(
        weak_from_this(), [](auto& self, const store::Tasks& /*tasks*/) { self.show(); }));
    tasksProvider_->startObserving();
}

void TextEditViewModel::type(const std::string& text) {
    if (viewState_.value().edit) {
        (*edit_)->text = text;
        viewState_.amend([&text](TextEditViewState& state) { state.edit->text = text; });
    }
}

void TextEditViewModel::save() {
    const std::optional<TextEdit> edit = viewState_.value().edit;
    const bool isBlank = edit && base::trimmed(edit->text).empty();
    if (!edit || (isBlank && !edit->noteId)) {
        return;
    }
    finish();
    // The keyboard is on the note again, from where it comes to the one beside.
    show();
    if (isBlank) {
        dataOperationsService_->deleteNote(*edit->noteId, taskId_);
    }
}

void TextEditViewModel::leave() {
    edit_->reset();
    show();
}

void TextEditViewModel::begin(const std::optional<base::Uuid>& noteId) {
    const store::Task* const task = this->task();
    TextEdit next{.noteId = noteId, .text = {}};
    const std::optional<TextEdit>& shown = viewState_.value().edit;
    const auto* const stored = task != nullptr ? storedText(next, *task) : nullptr;
    if (stored == nullptr || (shown && shown->noteId == noteId)) {
        return;
    }
    next.text = stored->value_or("");
    finish();
    *edit_ = std::move(next);
    show();
}

void TextEditViewModel::show() {
    const store::Task* const task = this->task();
    TextEditViewState next{.canEdit = task != nullptr, .edit = {}};
    if (task != nullptr && *edit_ && storedText(**edit_, *task) != nullptr) {
        next.edit = *edit_;
    }
    if (next != viewState_.value()) {
        viewState_.setValue(std::move(next));
    }
}

const store::Task* TextEditViewModel::task() const {
    return store::taskWithId(tasksProvider_->currentItems()->value(), taskId_);
}

void TextEditViewModel::finish() {
    const store::Task* const task = this->task();
    if (const auto edit = std::exchange(*edit_, std::nullopt); edit && task != nullptr) {
        saveText(*edit, *task, *dataOperationsService_);
    }
}

}  // namespace hearthmark::presentation
