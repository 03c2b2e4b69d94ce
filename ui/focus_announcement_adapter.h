// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QObject>
#include <QString>
#include <memory>

#include "livedata/subscription.h"
#include "presentation/focus_announcement_view_model.h"

namespace hearthmark::ui {

// Hands to Announcer.qml what a screen reader is to speak. Owns its view model.
class FocusAnnouncementAdapter final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the home view factory")
    Q_PROPERTY(bool presented READ isPresented NOTIFY presentedChanged FINAL)
    Q_PROPERTY(QString text READ text NOTIFY textChanged FINAL)

 public:
    // The view model observes already.
    explicit FocusAnnouncementAdapter(
        std::shared_ptr<presentation::FocusAnnouncementViewModel> viewModel);

    // Whether the window is; a hidden one says nothing, the desktop's notifications do.
    void setShown(bool isShown);

    bool isPresented() const;
    QString text() const;

 signals:
    void presentedChanged();
    void textChanged();

 private:
    std::shared_ptr<presentation::FocusAnnouncementViewModel> viewModel_;
    bool isShown_ = true;
    livedata::Subscription subscription_;
};

}  // namespace hearthmark::ui
