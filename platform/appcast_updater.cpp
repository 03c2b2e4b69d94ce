// SPDX-License-Identifier: MIT
#include "platform/appcast_updater.h"

#include <QDir>
#include <QRegularExpression>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/open_with_desktop.h"

namespace hearthmark::platform {

namespace {

using services::UpdatePhase;

constexpr qint64 kLargestFeed = 1'000'000;
constexpr qint64 kVerifiedPart = 1'000'000;

QString reasonAgainst(const QUrl& feed, bool hasKey) {
    if (feed.isEmpty()) {
        return QObject::tr("This build has no update feed.");
    }
    if (feed.scheme() != QLatin1String("https") || feed.host().isEmpty()) {
        return QObject::tr("The update feed of this build has no secure address.");
    }
    return hasKey ? QString() : QObject::tr("This build has no key to check updates with.");
}

QString notStored(const QString& cause) {
    return QObject::tr("The update cannot be stored: %1.").arg(cause);
}

// Makes the directory, or takes the one that is there, for its owner alone. A link is refused: what
// it leads to need not be ours.
std::error_code makeDirectory(const std::filesystem::path& directory) {
    using std::filesystem::perm_options;
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    if (!error) {
        std::filesystem::permissions(directory, std::filesystem::perms::owner_all,
                                     perm_options::replace | perm_options::nofollow, error);
    }
    return error;
}

void removePackages(QDir directory) {
    for (const QString& name :
         directory.entryList({QStringLiteral("*.deb"), QStringLiteral("*.part")},
                             QDir::Files | QDir::Hidden | QDir::System)) {
        directory.remove(name);
    }
}

// The name that the package has at its server, where it is no more than the name of a package.
QString fileName(const AppcastItem& item) {
    static const QRegularExpression kHarmless(
        QStringLiteral("\\A[A-Za-z0-9][A-Za-z0-9.+~_-]{0,99}\\.deb\\z"));
    const QString name = item.package.fileName();
    return kHarmless.match(name).hasMatch() ? name
                                            : QStringLiteral("hearthmark-%1.deb").arg(item.version);
}

}  // namespace

AppcastUpdater::AppcastUpdater(Configuration configuration)
    : configuration_(std::move(configuration)),
      key_(ReleaseKey::fromBase64(configuration_.publicKey)),
      unavailableReason_(reasonAgainst(configuration_.feed, key_.has_value()).toStdString()),
      canCheckForUpdates_(unavailableReason_.empty()) {
    QObject::connect(&verification_, &QTimer::timeout, &verification_,
                     [this] { verifyNextPart(); });
}

void AppcastUpdater::checkForUpdates() {
    if (!canCheckForUpdates_.value()) {
        return;
    }
    canCheckForUpdates_.setValue(false);
    if (!network_) {
        network_ = std::make_unique<QNetworkAccessManager>();
    }
    item_ = {};
    received_ = 0;
    show(UpdatePhase::checking);
    feed_.close();
    feed_.setData({});
    feed_.open(QIODevice::WriteOnly);
    transfer_ = std::make_unique<HttpsTransfer>(
        *network_,
        HttpsTransfer::Request{.address = configuration_.feed,
                               .largestSize = kLargestFeed,
                               .patience = configuration_.patience},
        feed_, [](qint64 /*received*/) {},
        [this](const QString& fault) { fault.isEmpty() ? readFeed() : fail(fault); });
}

void AppcastUpdater::readFeed() {
    transfer_.reset();
    AppcastReading reading = readAppcast(feed_.data(), configuration_.currentVersion);
    item_ = std::move(reading.item);
    switch (reading.verdict) {
        case AppcastVerdict::unreadable:
            return fail(QObject::tr("The update server's answer is not a complete update feed."));
        case AppcastVerdict::incomplete:
            return fail(
                QObject::tr("There is a version %1, but the update feed does not say how to "
                            "install it.")
                    .arg(item_.version));
        case AppcastVerdict::upToDate:
            item_.version = configuration_.currentVersion;
            return show(UpdatePhase::upToDate);
        case AppcastVerdict::newer:
            return show(UpdatePhase::available);
    }
}

void AppcastUpdater::install() {
    if (state_.value().phase != UpdatePhase::available || !openPackage()) {
        return;
    }
    show(UpdatePhase::downloading);
    transfer_ = std::make_unique<HttpsTransfer>(
        *network_,
        HttpsTransfer::Request{.address = item_.package,
                               .largestSize = item_.size,
                               .patience = configuration_.patience},
        *package_,
        [this](qint64 received) {
            received_ = received;
            show(UpdatePhase::downloading);
        },
        [this](const QString& fault) { fault.isEmpty() ? verify() : fail(fault); });
}

bool AppcastUpdater::openPackage() {
    if (const auto error = makeDirectory(configuration_.directory.toStdString())) {
        fail(notStored(QString::fromStdString(error.message())));
        return false;
    }
    removePackages(configuration_.directory);
    package_ =
        std::make_unique<QTemporaryFile>(configuration_.directory + QLatin1String("/XXXXXX.part"));
    if (!package_->open()) {
        fail(notStored(package_->errorString()));
        return false;
    }
    return true;
}

void AppcastUpdater::verify() {
    transfer_.reset();
    if (!package_->flush()) {
        return fail(notStored(package_->errorString()));
    }
    if (package_->size() != item_.size) {
        return fail(QObject::tr("The package is shorter than the update feed says."));
    }
    show(UpdatePhase::verifying);
    digest_.reset();
    package_->seek(0);
    verification_.start();
}

// Reads what is on the disk, not what came: that is what will be installed.
void AppcastUpdater::verifyNextPart() {
    const QByteArray part = package_->read(kVerifiedPart);
    digest_.addData(part);
    if (!part.isEmpty()) {
        return;
    }
    verification_.stop();
    if (!key_->hasSigned(item_.version, item_.size, digest_.result(), item_.signature)) {
        return fail(
            QObject::tr(
                "The package is not signed as version %1 of Hearthmark, so it was thrown away.")
                .arg(item_.version));
    }
    handOver();
}

void AppcastUpdater::handOver() {
    const QString path = configuration_.directory + '/' + fileName(item_);
    if (!package_->rename(path)) {
        return fail(notStored(package_->errorString()));
    }
    package_->setAutoRemove(false);
    stop();
    const QString sentence =
        openWithDesktop(path)
            ? QObject::tr("The package was handed to the system's installer. It lies at %1.")
            : QObject::tr("No program here installs packages. The package lies at %1.");
    show(UpdatePhase::handedOver, sentence.arg(path));
}

void AppcastUpdater::dismiss() {
    if (state_.value().phase != UpdatePhase::idle) {
        stop();
        state_.setValue({});
        canCheckForUpdates_.setValue(true);
    }
}

void AppcastUpdater::show(UpdatePhase phase, const QString& message) {
    state_.setValue(
        {.phase = phase,
         .version = item_.version.toStdString(),
         .notes = phase == UpdatePhase::available ? item_.notes.toStdString() : std::string(),
         .size = item_.size,
         .received = received_,
         .message = message.toStdString()});
}

void AppcastUpdater::fail(const QString& fault) {
    stop();
    show(UpdatePhase::failed, fault);
}

void AppcastUpdater::stop() {
    transfer_.reset();
    verification_.stop();
    package_.reset();
}

}  // namespace hearthmark::platform
