// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>
#include <memory>
#include <optional>

#include "base/uuid.h"
#include "presentation/tasks_list_view_model.h"
#include "ui/list/task_list_model.h"
#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

// Hands the task list's view state to TaskListView.qml. Owns its view model.
class TaskListAdapter final : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the subview factory")
    Q_PROPERTY(bool loaded READ loaded NOTIFY loadedChanged FINAL)
    Q_PROPERTY(bool isSearchOpen READ isSearchOpen NOTIFY searchShown FINAL)
    // How many tasks match; empty while no word is searched for.
    Q_PROPERTY(QString matches READ matches NOTIFY searchShown FINAL)
    Q_PROPERTY(hearthmark::ui::TaskListModel* rows READ rows CONSTANT FINAL)

 public:
    explicit TaskListAdapter(std::shared_ptr<presentation::TaskListViewModelProtocol> viewModel);

    bool loaded() const { return loaded_; }
    bool isSearchOpen() const { return isSearchOpen_; }
    QString matches() const { return matches_; }
    TaskListModel* rows() { return &rows_; }
    // What the keyboard is best on that comes from elsewhere: the row that came with the state that
    // is being shown, else that of the selected task, or -1.
    Q_INVOKABLE int newestRow() const;

    Q_INVOKABLE void openSearch();
    Q_INVOKABLE void search(const QString& typed);
    Q_INVOKABLE void closeSearch();
    // Whether a key with that text begins a search, rather than being one of the list's own.
    Q_INVOKABLE static bool isTyping(const QString& text, int modifiers);

    // The task that the keyboard has reached, and its row of now; the selected one's where it is
    // gone, or -1.
    Q_INVOKABLE void reach(int row) { reachedId_ = rows_.idAt(row); }
    // The same while it runs, or -1.
    Q_INVOKABLE int reachedRunningRow() const;
    Q_INVOKABLE int reachedRow() const;

 signals:
    void loadedChanged();
    void searchShown();
    // From the event loop, once the views have followed all rows of a new state.
    void stateShown();
    // The same after a change of what is searched for.
    void matchesShown();

 private:
    void show() override;

    std::shared_ptr<presentation::TaskListViewModelProtocol> viewModel_;
    TaskListModel rows_;
    int insertedRow_ = -1;
    std::optional<base::Uuid> reachedId_;
    QString matches_;
    bool isSearchOpen_ = false;
    bool loaded_ = false;
};

}  // namespace hearthmark::ui
