// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>
#include <memory>
#include <optional>

#include "presentation/task_detail_view_model.h"
#include "ui/detail/own_focus_adapter.h"
#include "ui/detail/task_detail_list_model.h"
#include "ui/detail/task_detail_subviews_factory.h"
#include "ui/detail/text_edit_adapter.h"
#include "ui/notes/notes_adapter.h"
#include "ui/notes/whole_note_adapter.h"
#include "ui/rows/interval_list_model.h"
#include "ui/sheets/correct_interval_adapter.h"
#include "ui/sheets/share_container_adapter.h"
#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

// The sheets over a task's detail pane.
enum class TaskDetailViewSheetType { share };

// Hands the view state of one task to TaskDetailView.qml. Owns its view model and the adapters of
// the notes section and of what is edited in its place, which stay, and of the sheets of sharing
// and of a whole note, which are made each time they are presented.
class TaskDetailAdapter final : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the subview factory")
    Q_PROPERTY(bool loaded READ loaded NOTIFY loadedChanged FINAL)
    Q_PROPERTY(QString taskName READ taskName NOTIFY taskNameChanged FINAL)
    Q_PROPERTY(QString totalTimeSpent READ totalTimeSpent NOTIFY totalTimeSpentChanged FINAL)
    Q_PROPERTY(bool canStartFocus READ canStartFocus NOTIFY canStartFocusChanged FINAL)
    Q_PROPERTY(bool isDone READ isDone NOTIFY doneChanged FINAL)
    Q_PROPERTY(bool canBeDone READ canBeDone NOTIFY doneChanged FINAL)
    Q_PROPERTY(QString shortFocusText READ shortFocusText CONSTANT FINAL)
    Q_PROPERTY(QString longFocusText READ longFocusText CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::OwnFocusAdapter* ownFocus READ ownFocus CONSTANT FINAL)
    Q_PROPERTY(
        hearthmark::ui::IntervalListModel* runningIntervals READ runningIntervals CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::TaskDetailListModel* rows READ rows CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::NotesAdapter* notes READ notes CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::TextEditAdapter* edit READ edit CONSTANT FINAL)
    Q_PROPERTY(bool isShareSheetDisplayed READ isShareSheetDisplayed NOTIFY
                   displayedSheetTypeChanged FINAL)
    Q_PROPERTY(hearthmark::ui::ShareContainerAdapter* share READ share NOTIFY
                   displayedSheetTypeChanged FINAL)
    Q_PROPERTY(
        hearthmark::ui::WholeNoteAdapter* wholeNote READ wholeNote NOTIFY wholeNoteChanged FINAL)
    Q_PROPERTY(hearthmark::ui::CorrectIntervalAdapter* correction READ correction NOTIFY
                   correctionChanged FINAL)

 public:
    TaskDetailAdapter(std::shared_ptr<presentation::TaskDetailViewModelProtocol> viewModel,
                      TaskDetailSubviewsFactory subviewsFactory);

    bool loaded() const { return loaded_; }
    QString taskName() const { return taskName_; }
    QString totalTimeSpent() const { return totalTimeSpent_; }
    bool canStartFocus() const { return canStartFocus_; }
    bool isDone() const { return isDone_; }
    bool canBeDone() const { return canBeDone_; }
    // Empty where the duration has no text: then the button is left out.
    QString shortFocusText() const { return shortFocusText_; }
    QString longFocusText() const { return longFocusText_; }
    OwnFocusAdapter* ownFocus() { return &ownFocus_; }
    IntervalListModel* runningIntervals() { return &runningIntervals_; }
    TaskDetailListModel* rows() { return &rows_; }
    NotesAdapter* notes() const { return notes_.get(); }
    TextEditAdapter* edit() const { return edit_.get(); }
    // Absent while no sheet is displayed.
    std::optional<TaskDetailViewSheetType> displayedSheetType() const {
        return displayedSheetType_;
    }
    bool isShareSheetDisplayed() const {
        return displayedSheetType() == TaskDetailViewSheetType::share;
    }
    // Present while its sheet is displayed.
    ShareContainerAdapter* share() const { return share_.get(); }
    // Present while a long note is displayed in a sheet.
    WholeNoteAdapter* wholeNote() const { return wholeNote_.get(); }
    // Present while an interval is being corrected or added.
    CorrectIntervalAdapter* correction() const { return correction_.get(); }

    Q_INVOKABLE void startShortFocus();
    Q_INVOKABLE void startLongFocus();
    // Done, or done no longer; nothing while the task runs.
    Q_INVOKABLE void toggleDone();
    // With the rest of the length of an interval that is short of it.
    Q_INVOKABLE void continueInterval(int row);
    // The note of a row; nothing on another row.
    Q_INVOKABLE void editNote(int row);
    Q_INVOKABLE void displayShareSheet();
    // Nothing where it is not displayed: a sheet that closes because another task was selected says
    // so to the adapter of that one.
    Q_INVOKABLE void dismissShareSheet();
    // The same for the note of a row.
    Q_INVOKABLE void displayWholeNote(int row);
    Q_INVOKABLE void dismissWholeNote();
    // Of a row of `rows`, of `runningIntervals`, and of a new one; nothing where the task is gone.
    Q_INVOKABLE void correctInterval(int row);
    Q_INVOKABLE void correctRunningInterval(int row);
    Q_INVOKABLE void addInterval();
    Q_INVOKABLE void dismissCorrection();

    // When today began; absent where the clock is out of all calendars.
    void showToday(std::optional<base::Date> today);

 signals:
    void loadedChanged();
    void taskNameChanged();
    void totalTimeSpentChanged();
    void canStartFocusChanged();
    void doneChanged();
    void displayedSheetTypeChanged();
    void wholeNoteChanged();
    void correctionChanged();
    // From the event loop, once the views have followed all rows of a new state.
    void rowsShown();

 private:
    // Nothing where none may start.
    void startFocus(base::Seconds length);
    void showNotes();
    void show() override;
    void displayCorrection(const std::optional<base::Uuid>& intervalId);

    std::shared_ptr<presentation::TaskDetailViewModelProtocol> viewModel_;
    TaskDetailSubviewsFactory subviewsFactory_;
    std::unique_ptr<NotesAdapter> notes_;
    std::unique_ptr<TextEditAdapter> edit_;
    std::optional<TaskDetailViewSheetType> displayedSheetType_;
    std::unique_ptr<ShareContainerAdapter> share_;
    std::unique_ptr<WholeNoteAdapter> wholeNote_;
    std::unique_ptr<CorrectIntervalAdapter> correction_;
    QString taskName_;
    QString totalTimeSpent_;
    const QString shortFocusText_;
    const QString longFocusText_;
    OwnFocusAdapter ownFocus_;
    IntervalListModel runningIntervals_;
    TaskDetailListModel rows_;
    std::optional<base::Date> today_;
    bool loaded_ = false;
    bool canStartFocus_ = false;
    bool isDone_ = false;
    bool canBeDone_ = false;
};

}  // namespace hearthmark::ui
