// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <memory>
#include <string>

#include "livedata/subscription.h"
#include "presentation/check_for_updates_view_model.h"
#include "services/ports/updater.h"
#include "ui/state/state_adapter.h"
#include "ui/text/text_lines_model.h"

namespace hearthmark::ui {

// Hands the updater's state, as texts, to the menu item and the sheet, and their actions to the
// updater. Lives as long as the main window.
class UpdateAdapter final : public hearthmark::ui::StateAdapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the home view factory")
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY changed FINAL)
    Q_PROPERTY(QString unavailableReason READ unavailableReason CONSTANT FINAL)
    Q_PROPERTY(bool presented READ isPresented NOTIFY changed FINAL)
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    Q_PROPERTY(QString detail READ detail NOTIFY changed FINAL)
    Q_PROPERTY(hearthmark::ui::TextLinesModel* notes READ notes CONSTANT FINAL)
    Q_PROPERTY(bool hasNotes READ hasNotes NOTIFY changed FINAL)
    Q_PROPERTY(bool isOffer READ isOffer NOTIFY changed FINAL)
    Q_PROPERTY(bool isOver READ isOver NOTIFY changed FINAL)
    Q_PROPERTY(bool isDownload READ isDownload NOTIFY changed FINAL)
    Q_PROPERTY(double progress READ progress NOTIFY changed FINAL)
    Q_PROPERTY(QString dismissText READ dismissText NOTIFY changed FINAL)
    Q_PROPERTY(QString installCommand READ installCommand NOTIFY changed FINAL)
    Q_PROPERTY(QString fault READ fault NOTIFY changed FINAL)

 public:
    UpdateAdapter(std::shared_ptr<presentation::CheckForUpdatesViewModel> checkForUpdatesViewModel,
                  std::shared_ptr<services::Updater> updater);

    bool canCheckForUpdates() const {
        return checkForUpdatesViewModel_->canCheckForUpdates().value();
    }
    QString unavailableReason() const;
    bool isPresented() const;
    QString title() const;
    QString detail() const;
    TextLinesModel* notes() { return &notes_; }
    bool hasNotes() const { return !notesText_.empty(); }
    // A version to be installed or not.
    bool isOffer() const;
    // Nothing is left but to close the sheet.
    bool isOver() const;
    bool isDownload() const;
    // Of the download, from 0 to 1.
    double progress() const;
    QString dismissText() const;
    // For a terminal; only once a package was handed over.
    QString installCommand() const;
    // Why the folder does not open; empty where nothing is known against it.
    QString fault() const { return fault_; }

    Q_INVOKABLE void check() { updater_->checkForUpdates(); }
    Q_INVOKABLE void install() { updater_->install(); }
    Q_INVOKABLE void showPackage();
    // What Enter does: agrees to what is offered, or closes what is over.
    Q_INVOKABLE void accept();
    Q_INVOKABLE void dismiss() { updater_->dismiss(); }

 private:
    const services::UpdateState& state() const { return updater_->state().value(); }
    void show() override;

    std::shared_ptr<presentation::CheckForUpdatesViewModel> checkForUpdatesViewModel_;
    std::shared_ptr<services::Updater> updater_;
    std::string notesText_;
    TextLinesModel notes_;
    QString fault_;
    livedata::Subscription canCheckForUpdatesSubscription_;
};

}  // namespace hearthmark::ui
