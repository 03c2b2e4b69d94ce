// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>
#include <QString>
#include <memory>

#include "livedata/subscription.h"
#include "presentation/task_detail_view_model.h"
#include "ui/interval_list_model.h"

namespace hearthmark::ui {

// Hands the view state of one task to TaskDetailView.qml. Owns its view model.
class TaskDetailAdapter final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the subview factory")
    Q_PROPERTY(bool loaded READ loaded NOTIFY loadedChanged FINAL)
    Q_PROPERTY(QString taskName READ taskName NOTIFY taskNameChanged FINAL)
    Q_PROPERTY(QString totalTimeSpent READ totalTimeSpent NOTIFY totalTimeSpentChanged FINAL)
    Q_PROPERTY(bool canStartFocus READ canStartFocus NOTIFY canStartFocusChanged FINAL)
    Q_PROPERTY(QString shortFocusText READ shortFocusText CONSTANT FINAL)
    Q_PROPERTY(QString longFocusText READ longFocusText CONSTANT FINAL)
    Q_PROPERTY(
        hearthmark::ui::IntervalListModel* runningIntervals READ runningIntervals CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::IntervalListModel* nonRunningIntervals READ nonRunningIntervals
                   CONSTANT FINAL)

 public:
    explicit TaskDetailAdapter(
        std::shared_ptr<presentation::TaskDetailViewModelProtocol> viewModel);

    bool loaded() const { return loaded_; }
    QString taskName() const { return taskName_; }
    QString totalTimeSpent() const { return totalTimeSpent_; }
    bool canStartFocus() const { return canStartFocus_; }
    // Empty where the duration has no text: then the button is left out.
    QString shortFocusText() const { return shortFocusText_; }
    QString longFocusText() const { return longFocusText_; }
    IntervalListModel* runningIntervals() { return &runningIntervals_; }
    IntervalListModel* nonRunningIntervals() { return &nonRunningIntervals_; }

    Q_INVOKABLE void startShortFocus();
    Q_INVOKABLE void startLongFocus();

 signals:
    void loadedChanged();
    void taskNameChanged();
    void totalTimeSpentChanged();
    void canStartFocusChanged();

 private:
    void show();

    std::shared_ptr<presentation::TaskDetailViewModelProtocol> viewModel_;
    QString taskName_;
    QString totalTimeSpent_;
    const QString shortFocusText_;
    const QString longFocusText_;
    IntervalListModel runningIntervals_;
    IntervalListModel nonRunningIntervals_;
    bool loaded_ = false;
    bool canStartFocus_ = false;
    livedata::Subscription subscription_;
};

}  // namespace hearthmark::ui
