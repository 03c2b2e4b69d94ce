// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QImage>
#include <QString>
#include <QStringList>
#include <memory>

#include "presentation/history_view_model.h"
#include "presentation/selected_task_id.h"
#include "services/ports/clipboard.h"
#include "ui/history/history_bar_model.h"
#include "ui/history/history_row_model.h"
#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

// Hands the page of the history to HistoryPage.qml. Owns its view model.
class HistoryAdapter final : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the subview factory")
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    // "Total: 1:05:00", or that of the chosen bar.
    Q_PROPERTY(QString total READ total NOTIFY changed FINAL)
    Q_PROPERTY(int unit READ unit NOTIFY changed FINAL)
    Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY changed FINAL)
    Q_PROPERTY(bool canGoForward READ canGoForward NOTIFY changed FINAL)
    Q_PROPERTY(bool holdsToday READ holdsToday NOTIFY changed FINAL)
    // -1 where none is.
    Q_PROPERTY(int chosen READ chosen NOTIFY changed FINAL)
    Q_PROPERTY(int current READ current NOTIFY changed FINAL)
    Q_PROPERTY(bool canExport READ canExport NOTIFY changed FINAL)
    // What is shown, in seconds since the reference date: [begin, end).
    Q_PROPERTY(double begin READ begin NOTIFY changed FINAL)
    Q_PROPERTY(double end READ end NOTIFY changed FINAL)
    Q_PROPERTY(int sortedBy READ sortedBy NOTIFY changed FINAL)
    Q_PROPERTY(bool isAscending READ isAscending NOTIFY changed FINAL)
    // Of a month and a year, each with its place in the other.
    Q_PROPERTY(QStringList weekdays READ weekdays NOTIFY changed FINAL)
    Q_PROPERTY(QStringList weekdayMeans READ weekdayMeans NOTIFY changed FINAL)
    Q_PROPERTY(hearthmark::ui::HistoryBarModel* bars READ bars CONSTANT FINAL)
    Q_PROPERTY(hearthmark::ui::HistoryRowModel* rows READ rows CONSTANT FINAL)

 public:
    // In the order of the tabs, and of the columns.
    enum Unit { Day, Week, Month, Year, All };
    Q_ENUM(Unit)
    enum Column { Task, TimeSpent, Share, Focuses };
    Q_ENUM(Column)

    HistoryAdapter(std::shared_ptr<presentation::HistoryViewModel> viewModel,
                   std::shared_ptr<presentation::SelectedTaskId> selectedTaskId,
                   std::shared_ptr<services::Clipboard> clipboard);

    QString title() const { return shown_.title; }
    QString total() const { return shown_.total; }
    int unit() const { return shown_.unit; }
    bool canGoBack() const { return shown_.canGoBack; }
    bool canGoForward() const { return shown_.canGoForward; }
    bool holdsToday() const { return shown_.holdsToday; }
    int chosen() const { return shown_.chosen; }
    int current() const { return shown_.current; }
    bool canExport() const { return shown_.canExport; }
    double begin() const { return shown_.begin; }
    double end() const { return shown_.end; }
    int sortedBy() const { return shown_.sortedBy; }
    bool isAscending() const { return shown_.isAscending; }
    QStringList weekdays() const { return shown_.weekdays; }
    QStringList weekdayMeans() const { return shown_.weekdayMeans; }
    HistoryBarModel* bars() { return &bars_; }
    HistoryRowModel* rows() { return &rows_; }

    Q_INVOKABLE void setUnit(int unit);
    Q_INVOKABLE void goBack() { viewModel_->go(-1); }
    Q_INVOKABLE void goForward() { viewModel_->go(1); }
    Q_INVOKABLE void goToToday() { viewModel_->goToToday(); }
    // The same one again takes that back.
    Q_INVOKABLE void choose(int bar);
    // Answers whether one was chosen.
    Q_INVOKABLE bool takeChoiceBack() { return viewModel_->takeChoiceBack(); }
    Q_INVOKABLE void sortBy(int column);
    // Selects the task, which leaves the page.
    Q_INVOKABLE void openTask(int row);
    // The chart as a text, and as the picture that was taken of it.
    Q_INVOKABLE void copy(const QImage& picture);

 private:
    struct Shown {
        QString title;
        QString total;
        int unit = 0;
        bool canGoBack = false;
        bool canGoForward = false;
        bool holdsToday = false;
        int chosen = -1;
        int current = -1;
        double begin = 0;
        double end = 0;
        int sortedBy = 0;
        bool isAscending = false;
        bool canExport = false;
        QStringList weekdays = {};
        QStringList weekdayMeans = {};

        bool operator==(const Shown&) const = default;
    };

    void show() override;

    std::shared_ptr<presentation::HistoryViewModel> viewModel_;
    std::shared_ptr<presentation::SelectedTaskId> selectedTaskId_;
    std::shared_ptr<services::Clipboard> clipboard_;
    Shown shown_;
    HistoryBarModel bars_;
    HistoryRowModel rows_;
};

}  // namespace hearthmark::ui
