// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "base/uuid.h"
#include "livedata/subscription.h"
#include "presentation/home_view_model.h"
#include "services/in_step_time_keeping_provider.h"
#include "services/newest_focus.h"
#include "ui/detail/task_detail_adapter.h"
#include "ui/history/history_adapter.h"
#include "ui/list/task_list_adapter.h"
#include "ui/sheets/about_adapter.h"
#include "ui/sheets/add_task_adapter.h"
#include "ui/sheets/file_transfer_adapter.h"
#include "ui/sheets/restore_adapter.h"
#include "ui/sheets/update_adapter.h"
#include "ui/window/appearance_adapter.h"
#include "ui/window/focus_announcement_adapter.h"
#include "ui/window/home_view_subviews_factory.h"
#include "ui/window/start_at_login_adapter.h"
#include "ui/window/undo_adapter.h"
#include "ui/window/undo_menu_adapter.h"
#include "ui/window/unseen_finishes_adapter.h"

namespace hearthmark::ui {

// What stays as it is while tasks come and go.
struct HomeParts {
    // A part that QML sees: a property of the adapter below by the same name.
    template <class Part>
    struct Owned : std::unique_ptr<Part> {
        using std::unique_ptr<Part>::unique_ptr;
        // NOLINTBEGIN(google-explicit-constructor): it stands for the pointer, which the property
        // reads
        Owned(std::unique_ptr<Part> part) : std::unique_ptr<Part>(std::move(part)) {}
        operator Part*() const { return this->get(); }
        // NOLINTEND(google-explicit-constructor)
    };

    Owned<AboutAdapter> about;
    Owned<AppearanceAdapter> appearance;
    Owned<FileTransferAdapter> fileTransfer;
    Owned<FocusAnnouncementAdapter> focusAnnouncement;
    Owned<RestoreAdapter> restore;
    Owned<StartAtLoginAdapter> startAtLogin;
    Owned<UndoAdapter> undo;
    Owned<UndoMenuAdapter> undoMenu;
    Owned<UnseenFinishesAdapter> unseenFinishes;
    Owned<UpdateAdapter> updates;
    std::unique_ptr<services::NewestFocus> newestFocus;
    // Of all views; it rests while they are not seen.
    std::shared_ptr<services::InStepTimeKeepingProvider> beat;
};

// Hands the home screen's state to HomeView.qml: the list, which stays, the detail pane, which is
// made for each selected task, the add-task sheet, which is made each time it is presented, and the
// parts that know no task. Owns the adapters of all; the QML engine owns none of them.
class HomeAdapter final : public QObject, private HomeParts {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the home view factory")
    Q_PROPERTY(hearthmark::ui::TaskListAdapter* taskList READ taskList CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::TaskDetailAdapter* taskDetail READ taskDetail NOTIFY
                   taskDetailChanged FINAL)
    Q_PROPERTY(hearthmark::ui::OverviewAdapter* overview READ overview NOTIFY overviewChanged FINAL)
    Q_PROPERTY(hearthmark::ui::HistoryAdapter* history READ history NOTIFY historyChanged FINAL)
    Q_PROPERTY(
        bool isAddSheetDisplayed READ isAddSheetDisplayed NOTIFY isAddSheetDisplayedChanged FINAL)
    Q_PROPERTY(hearthmark::ui::AddTaskAdapter* addTask READ addTask NOTIFY
                   isAddSheetDisplayedChanged FINAL)
    Q_PROPERTY(hearthmark::ui::AboutAdapter* about MEMBER about CONSTANT FINAL)
    Q_PROPERTY(
        hearthmark::ui::UnseenFinishesAdapter* unseenFinishes MEMBER unseenFinishes CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::AppearanceAdapter* appearance MEMBER appearance CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::FileTransferAdapter* fileTransfer MEMBER fileTransfer CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::FocusAnnouncementAdapter* focusAnnouncement MEMBER focusAnnouncement
                   CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::RestoreAdapter* restore MEMBER restore CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::StartAtLoginAdapter* startAtLogin MEMBER startAtLogin CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::UndoAdapter* undo MEMBER undo CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::UndoMenuAdapter* undoMenu MEMBER undoMenu CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::UpdateAdapter* updates MEMBER updates CONSTANT FINAL)

 public:
    HomeAdapter(std::shared_ptr<presentation::HomeViewModelProtocol> viewModel,
                HomeViewSubviewsFactory subviewsFactory, HomeParts parts,
                std::function<void()> onQuit);

    // Whether the window is; what is not seen need not follow each second. It is at first. Every
    // property that is a StateAdapter is told.
    void setShown(bool isShown);

    TaskListAdapter* taskList() const { return taskList_.get(); }
    TaskDetailAdapter* taskDetail() const { return taskDetail_.get(); }
    // Of the selected task; of all tasks while none is.
    OverviewAdapter* overview() const { return overview_.get(); }
    // Present while its page is open.
    HistoryAdapter* history() const { return history_.get(); }
    bool isAddSheetDisplayed() const { return addTask_ != nullptr; }
    // Present while its sheet is displayed.
    AddTaskAdapter* addTask() const { return addTask_.get(); }

    Q_INVOKABLE void displayAddSheet();
    Q_INVOKABLE void dismissAddSheet();
    // Of the range that was last looked at.
    Q_INVOKABLE void openHistory();
    Q_INVOKABLE void closeHistory();
    // On the selected task; where none is selected or no focus can start, nothing.
    void startShortFocus();
    // Of all tasks' running intervals; where none runs, nothing.
    Q_INVOKABLE void finishNewest() const { newestFocus->finish(); }
    Q_INVOKABLE void quit() { onQuit_(); }

 signals:
    void taskDetailChanged();
    void overviewChanged();
    void historyChanged();
    void isAddSheetDisplayedChanged();
    // From the list, which has selected the task: its pane is to edit the name.
    void renameRequested();
    // By the application menu.
    void searchRequested();

 private:
    void showSelectedTask();
    void showOverview();
    void openHistoryOf(int dayOfOverview);

    std::shared_ptr<presentation::HomeViewModelProtocol> viewModel_;
    HomeViewSubviewsFactory subviewsFactory_;
    std::function<void()> onQuit_;
    std::unique_ptr<TaskListAdapter> taskList_;
    std::unique_ptr<TaskDetailAdapter> taskDetail_;
    std::unique_ptr<OverviewAdapter> overview_;
    std::unique_ptr<HistoryAdapter> history_;
    std::unique_ptr<AddTaskAdapter> addTask_;
    std::optional<base::Uuid> shownTaskId_;
    bool isShown_ = true;
    livedata::Subscription subscription_;
};

}  // namespace hearthmark::ui
