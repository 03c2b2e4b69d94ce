// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>
#include <functional>
#include <memory>
#include <optional>

#include "base/uuid.h"
#include "livedata/subscription.h"
#include "presentation/home_view_model.h"
#include "presentation/newest_focus.h"
#include "services/in_step_time_keeping_provider.h"
#include "ui/detail/task_detail_adapter.h"
#include "ui/list/task_list_adapter.h"
#include "ui/sheets/about_adapter.h"
#include "ui/sheets/add_task_adapter.h"
#include "ui/sheets/restore_adapter.h"
#include "ui/sheets/update_adapter.h"
#include "ui/window/appearance_adapter.h"
#include "ui/window/focus_announcement_adapter.h"
#include "ui/window/home_view_subviews_factory.h"
#include "ui/window/start_at_login_adapter.h"
#include "ui/window/undo_adapter.h"
#include "ui/window/unseen_finishes_adapter.h"

namespace hearthmark::ui {

// Hands the home screen's state to HomeView.qml: the list, which stays, the detail pane, which is
// made for each selected task, the add-task sheet, which is made each time it is presented, and the
// parts that know no task. Owns the adapters of all; the QML engine owns none of them.
class HomeAdapter final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the home view factory")
    Q_PROPERTY(hearthmark::ui::TaskListAdapter* taskList READ taskList CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::TaskDetailAdapter* taskDetail READ taskDetail NOTIFY
                   taskDetailChanged FINAL)
    Q_PROPERTY(hearthmark::ui::OverviewAdapter* overview READ overview NOTIFY overviewChanged FINAL)
    Q_PROPERTY(
        bool isAddSheetDisplayed READ isAddSheetDisplayed NOTIFY isAddSheetDisplayedChanged FINAL)
    Q_PROPERTY(hearthmark::ui::AddTaskAdapter* addTask READ addTask NOTIFY
                   isAddSheetDisplayedChanged FINAL)
    Q_PROPERTY(hearthmark::ui::AboutAdapter* about READ about CONSTANT FINAL)
    Q_PROPERTY(
        hearthmark::ui::UnseenFinishesAdapter* unseenFinishes READ unseenFinishes CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::AppearanceAdapter* appearance READ appearance CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::FocusAnnouncementAdapter* focusAnnouncement READ focusAnnouncement
                   CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::RestoreAdapter* restore READ restore CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::StartAtLoginAdapter* startAtLogin READ startAtLogin CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::UndoAdapter* undo READ undo CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::UpdateAdapter* updates READ updates CONSTANT FINAL)

 public:
    // What stays as it is while tasks come and go.
    struct Parts {
        std::unique_ptr<AboutAdapter> about;
        std::unique_ptr<AppearanceAdapter> appearance;
        std::unique_ptr<FocusAnnouncementAdapter> focusAnnouncement;
        std::unique_ptr<RestoreAdapter> restore;
        std::unique_ptr<StartAtLoginAdapter> startAtLogin;
        std::unique_ptr<UndoAdapter> undo;
        std::unique_ptr<UnseenFinishesAdapter> unseenFinishes;
        std::unique_ptr<UpdateAdapter> updates;
        std::unique_ptr<presentation::NewestFocus> newestFocus;
        // Of all views; it rests while they are not seen.
        std::shared_ptr<services::InStepTimeKeepingProvider> beat;
    };

    HomeAdapter(std::shared_ptr<presentation::HomeViewModelProtocol> viewModel,
                HomeViewSubviewsFactory subviewsFactory, Parts parts, std::function<void()> onQuit);

    // Whether the window is; what is not seen need not follow each second. It is at first.
    void setShown(bool isShown);

    TaskListAdapter* taskList() const { return taskList_.get(); }
    TaskDetailAdapter* taskDetail() const { return taskDetail_.get(); }
    // Of the selected task; of all tasks while none is.
    OverviewAdapter* overview() const { return overview_.get(); }
    bool isAddSheetDisplayed() const { return addTask_ != nullptr; }
    // Present while its sheet is displayed.
    AddTaskAdapter* addTask() const { return addTask_.get(); }
    AboutAdapter* about() const { return parts_.about.get(); }
    AppearanceAdapter* appearance() const { return parts_.appearance.get(); }
    FocusAnnouncementAdapter* focusAnnouncement() const { return parts_.focusAnnouncement.get(); }
    RestoreAdapter* restore() const { return parts_.restore.get(); }
    StartAtLoginAdapter* startAtLogin() const { return parts_.startAtLogin.get(); }
    UndoAdapter* undo() const { return parts_.undo.get(); }
    UnseenFinishesAdapter* unseenFinishes() const { return parts_.unseenFinishes.get(); }
    UpdateAdapter* updates() const { return parts_.updates.get(); }

    Q_INVOKABLE void displayAddSheet();
    Q_INVOKABLE void dismissAddSheet();
    // On the selected task; where none is selected or no focus can start, nothing.
    void startShortFocus();
    // Of all tasks' running intervals; where none runs, nothing.
    Q_INVOKABLE void finishNewest() const { parts_.newestFocus->finish(); }
    Q_INVOKABLE void quit() { onQuit_(); }

 signals:
    void taskDetailChanged();
    void overviewChanged();
    void isAddSheetDisplayedChanged();

 private:
    void showSelectedTask();
    void showOverview();

    std::shared_ptr<presentation::HomeViewModelProtocol> viewModel_;
    HomeViewSubviewsFactory subviewsFactory_;
    Parts parts_;
    std::function<void()> onQuit_;
    std::unique_ptr<TaskListAdapter> taskList_;
    std::unique_ptr<TaskDetailAdapter> taskDetail_;
    std::unique_ptr<OverviewAdapter> overview_;
    std::unique_ptr<AddTaskAdapter> addTask_;
    std::optional<base::Uuid> shownTaskId_;
    bool isShown_ = true;
    livedata::Subscription subscription_;
};

}  // namespace hearthmark::ui
