// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QQuickTextDocument>
#include <QString>
#include <memory>
#include <optional>
#include <string>

#include "presentation/notes_view_model.h"
#include "ui/text/written_text.h"

namespace hearthmark::ui {

// Hands the note that is being written to NotesView.qml, and the state of the saved ones to the
// detail pane's list. Owns its view model.
class NotesAdapter final : public hearthmark::ui::WrittenText {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the subview factory")
    Q_PROPERTY(bool loaded READ loaded NOTIFY changed FINAL)
    Q_PROPERTY(bool canAddNote READ canAddNote NOTIFY changed FINAL)
    Q_PROPERTY(bool isWriting READ isWriting NOTIFY changed FINAL)
    Q_PROPERTY(bool canSave READ canSave NOTIFY canSaveChanged FINAL)
    Q_PROPERTY(QString saveText READ saveText NOTIFY changed FINAL)
    Q_PROPERTY(QString discardText READ discardText NOTIFY changed FINAL)

 public:
    explicit NotesAdapter(std::shared_ptr<presentation::NotesViewModelProtocol> viewModel);

    // Absent while the model is not loaded: then nothing is shown and nothing can be done.
    const std::optional<presentation::NotesViewState::View>& state() const {
        return viewModel_->viewState().value();
    }
    bool loaded() const { return state().has_value(); }
    bool canAddNote() const { return state() && state()->canAddNote; }
    // A note is open.
    bool isWriting() const override { return state() && state()->pendingNote; }
    std::string text() const override;
    // It is more than white space.
    bool canSave() const { return canSave_; }
    // The titles of the open note's buttons.
    QString saveText() const;
    QString discardText() const;

    Q_INVOKABLE void addNote() const;
    // A blank text leaves the note open.
    Q_INVOKABLE void saveNote(const QQuickTextDocument* text) const;
    Q_INVOKABLE void discardNote() const;
    void type(const std::string& text) override;

 signals:
    void canSaveChanged();

 private:
    void show() override;
    void followText(const std::string& text);

    std::shared_ptr<presentation::NotesViewModelProtocol> viewModel_;
    bool canSave_ = false;
};

}  // namespace hearthmark::ui
