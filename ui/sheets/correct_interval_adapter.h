// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>
#include <QStringList>
#include <memory>
#include <vector>

#include "presentation/correct_interval_view_model.h"
#include "ui/text/local_time_text.h"

namespace hearthmark::ui {

// Hands the sheet that corrects an interval, or adds one, what its fields begin with, and what is
// to be said of what stands in them. Owns its view model; made anew for each presentation.
class CorrectIntervalAdapter final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the subview factory")
    Q_PROPERTY(bool isNew READ isNew CONSTANT FINAL)
    Q_PROPERTY(QStringList taskNames MEMBER taskNames_ CONSTANT FINAL)
    Q_PROPERTY(int task READ task WRITE setTask NOTIFY checked FINAL)
    Q_PROPERTY(QString start MEMBER start_ WRITE setStart NOTIFY checked FINAL)
    Q_PROPERTY(QString timeSpent MEMBER timeSpent_ WRITE setTimeSpent NOTIFY checked FINAL)
    Q_PROPERTY(QString length MEMBER length_ WRITE setLength NOTIFY checked FINAL)
    // Each empty where there is nothing to say of the field.
    Q_PROPERTY(QString startFault READ startFault NOTIFY checked FINAL)
    Q_PROPERTY(QString timeSpentFault READ timeSpentFault NOTIFY checked FINAL)
    Q_PROPERTY(QString lengthFault READ lengthFault NOTIFY checked FINAL)
    Q_PROPERTY(QString remark READ remark NOTIFY checked FINAL)
    Q_PROPERTY(bool canSave READ canSave NOTIFY checked FINAL)

 public:
    explicit CorrectIntervalAdapter(
        std::unique_ptr<presentation::CorrectIntervalViewModel> viewModel);

    bool isNew() const { return viewModel_->isNew(); }
    int task() const { return task_; }
    // With the one of the beginning as an example where it cannot be read.
    QString startFault() const;
    QString timeSpentFault() const { return faultOf(presentation::IntervalField::timeSpent); }
    QString lengthFault() const { return faultOf(presentation::IntervalField::length); }
    QString remark() const;
    bool canSave() const { return !state_.fault; }

    void setTask(int task);
    void setStart(const QString& text);
    void setTimeSpent(const QString& text);
    void setLength(const QString& text);

    // The start with the part at the cursor that many steps later.
    Q_INVOKABLE QString steppedStart(int cursor, int steps) const;
    // The next of the tasks, after the one with that index, whose name begins so, around the end;
    // -1 where there is none.
    Q_INVOKABLE int taskAfter(int index, const QString& beginning) const;
    // Answers whether it could.
    Q_INVOKABLE bool save();

 signals:
    void checked();

 private:
    presentation::IntervalForm form() const;
    QString faultOf(presentation::IntervalField field) const;
    void check();

    std::unique_ptr<presentation::CorrectIntervalViewModel> viewModel_;
    std::vector<presentation::CorrectIntervalViewModel::Choice> tasks_;
    QStringList taskNames_;
    LocalTimeText format_;
    int task_ = 0;
    QString start_;
    QString timeSpent_;
    QString length_;
    // As they began.
    QString firstStart_;
    QString firstTimeSpent_;
    QString firstLength_;
    presentation::CorrectIntervalViewState state_;
};

}  // namespace hearthmark::ui
