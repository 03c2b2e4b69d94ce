// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>
#include <memory>

#include "presentation/focus_announcement_view_model.h"
#include "ui/state/state_adapter.h"

namespace hearthmark::ui {

// Hands to Announcer.qml what a screen reader is to speak. Owns its view model.
class FocusAnnouncementAdapter final : public hearthmark::ui::StateAdapter {
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
    void setShown(bool isShown) override;

    bool isPresented() const;
    QString text() const;

 signals:
    void presentedChanged();
    void textChanged();

 private:
    void show() override;

    std::shared_ptr<presentation::FocusAnnouncementViewModel> viewModel_;
};

}  // namespace hearthmark::ui
