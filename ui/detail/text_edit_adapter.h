// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <memory>
#include <optional>
#include <string>

#include "base/uuid.h"
#include "presentation/text_edit_view_model.h"
#include "ui/text/written_text.h"

namespace hearthmark::ui {

// Hands the name or the note that is being edited where it stands to the views of a task's pane.
// Owns its view model.
class TextEditAdapter final : public hearthmark::ui::WrittenText {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the subview factory")
    Q_PROPERTY(bool canEdit READ canEdit NOTIFY changed FINAL)
    Q_PROPERTY(bool isName READ isName NOTIFY changed FINAL)
    Q_PROPERTY(bool isNote READ isNote NOTIFY changed FINAL)
    Q_PROPERTY(bool canSave READ canSave NOTIFY blankChanged FINAL)
    Q_PROPERTY(bool deletes READ deletes NOTIFY blankChanged FINAL)

 public:
    explicit TextEditAdapter(std::shared_ptr<presentation::TextEditViewModel> viewModel);

    bool canEdit() const { return viewModel_->viewState().value().canEdit; }
    bool isName() const { return edit() && !edit()->noteId; }
    bool isNote() const { return noteId().has_value(); }
    std::optional<base::Uuid> noteId() const { return edit() ? edit()->noteId : std::nullopt; }
    // A name that is blank cannot be saved; to save a note that is blank deletes it.
    bool canSave() const { return isNote() || !isBlank_; }
    bool deletes() const { return isNote() && isBlank_; }

    bool isWriting() const override { return edit().has_value(); }
    std::string text() const override { return edit() ? edit()->text : std::string(); }
    void type(const std::string& text) override;

    Q_INVOKABLE void editName() { viewModel_->editName(); }
    void editNote(const base::Uuid& noteId) { viewModel_->editNote(noteId); }
    Q_INVOKABLE void save() { viewModel_->save(); }
    Q_INVOKABLE void leave() { viewModel_->leave(); }

 signals:
    // Before `changed`, on which the views make the editor: its row is to know of it first.
    void editChanged();
    void blankChanged();

 private:
    const std::optional<presentation::TextEdit>& edit() const {
        return viewModel_->viewState().value().edit;
    }
    void show() override;

    std::shared_ptr<presentation::TextEditViewModel> viewModel_;
    bool isBlank_ = false;
};

}  // namespace hearthmark::ui
