// SPDX-License-Identifier: MIT
#include "ui/sheets/update_adapter.h"

#include <QLocale>
#include <utility>

#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

using services::UpdatePhase;

QString sizeText(std::int64_t bytes) {
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

}  // namespace

UpdateAdapter::UpdateAdapter(
    std::shared_ptr<presentation::CheckForUpdatesViewModel> checkForUpdatesViewModel,
    std::shared_ptr<services::Updater> updater)
    : checkForUpdatesViewModel_(std::move(checkForUpdatesViewModel)),
      updater_(std::move(updater)),
      canCheckForUpdatesSubscription_(
          checkForUpdatesViewModel_->canCheckForUpdates().subscribeDidChange(
              [this] { emit changed(); })) {
    follow(updater_->state());
}

QString UpdateAdapter::unavailableReason() const {
    return toQString(updater_->unavailableReason());
}

bool UpdateAdapter::isPresented() const {
    return state().phase != UpdatePhase::idle;
}

QString UpdateAdapter::title() const {
    switch (state().phase) {
        case UpdatePhase::idle:
            break;
        case UpdatePhase::checking:
            return tr("Checking for updates…");
        case UpdatePhase::upToDate:
            return tr("Hearthmark is up to date.");
        case UpdatePhase::available:
            return tr("A new version of Hearthmark");
        case UpdatePhase::downloading:
            return tr("Downloading version %1…").arg(toQString(state().version));
        case UpdatePhase::verifying:
            return tr("Verifying…");
        case UpdatePhase::handingOver:
            return tr("Opening the package…");
        case UpdatePhase::handedOver:
            return tr("Ready to install");
        case UpdatePhase::failed:
            return tr("Hearthmark could not be updated.");
    }
    return {};
}

QString UpdateAdapter::detail() const {
    switch (state().phase) {
        case UpdatePhase::upToDate:
            return tr("Version %1 is the newest one.").arg(toQString(state().version));
        case UpdatePhase::available:
            return tr("Version %1 is available (%2).")
                .arg(toQString(state().version), sizeText(state().size));
        case UpdatePhase::downloading:
            return tr("%1 of %2").arg(sizeText(state().received), sizeText(state().size));
        default:
            return toQString(state().message);
    }
}

bool UpdateAdapter::isOffer() const {
    return state().phase == UpdatePhase::available;
}

bool UpdateAdapter::isOver() const {
    return state().phase == UpdatePhase::upToDate || state().phase == UpdatePhase::handedOver ||
           state().phase == UpdatePhase::failed;
}

bool UpdateAdapter::isDownload() const {
    return state().phase == UpdatePhase::downloading;
}

double UpdateAdapter::progress() const {
    return state().size == 0
               ? 0
               : static_cast<double>(state().received) / static_cast<double>(state().size);
}

QString UpdateAdapter::dismissText() const {
    if (isOffer()) {
        return tr("Later");
    }
    return isOver() ? tr("Close") : tr("Cancel");
}

QString UpdateAdapter::installCommand() const {
    if (state().package.empty()) {
        return {};
    }
    return QStringLiteral("sudo apt install '%1'")
        .arg(toQString(state().package).replace('\'', QLatin1String("'\\''")));
}

void UpdateAdapter::accept() {
    if (isOffer()) {
        install();
    } else if (isOver()) {
        dismiss();
    }
}

void UpdateAdapter::showPackage() {
    fault_ = updater_->showPackage() ? QString() : tr("No program here opens folders.");
    emit changed();
}

void UpdateAdapter::show() {
    if (replace(notesText_, state().notes)) {
        notes_.setText(notesText_);
    }
    fault_.clear();
    emit changed();
}

}  // namespace hearthmark::ui
