// SPDX-License-Identifier: MIT
#include "platform/updates/appcast_updater.h"

#include <QDateTime>
#include <QDir>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/updates/open_with_desktop.h"

namespace hearthmark::platform {

namespace {

using services::UpdatePhase;

constexpr qint64 kLargestFeed = 500'000;
constexpr qint64 kVerifiedPart = 1'000'000;
// How long an installer may take that was handed a package.
constexpr qint64 kDaysInUse = 1;

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

void removeOldPackages(const QDir& directory) {
    const QDateTime oldest = QDateTime::currentDateTime().addDays(-kDaysInUse);
    for (const QFileInfo& file :
         directory.entryInfoList({QStringLiteral("*.deb"), QStringLiteral("*.part")},
                                 QDir::Files | QDir::Hidden | QDir::System)) {
        if (file.lastModified() < oldest) {
            QFile::remove(file.filePath());
        }
    }
}

// Where it is no more than the name of a package.
bool isHarmless(const QString& fileName) {
    static const QRegularExpression kForm(
        QStringLiteral("\\A[A-Za-z0-9][A-Za-z0-9.+~_-]{0,99}\\.deb\\z"));
    return kForm.match(fileName).hasMatch();
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
    if (state_.value().phase != UpdatePhase::available) {
        return;
    }
    if (const auto error = makeDirectory(configuration_.directory.toStdString())) {
        return fail(notStored(QString::fromStdString(error.message())));
    }
    openKept() ? verify() : download();
}

// Where the package may lie: under the name that it has at its server, or under others where that
// belongs to another package.
QString AppcastUpdater::place(int number) const {
    const QString serversName = item_.package.fileName();
    if (number == 0 && isHarmless(serversName)) {
        return configuration_.directory + '/' + serversName;
    }
    const QString suffix = number == 0 ? QString() : QStringLiteral("-%1").arg(number);
    return QStringLiteral("%1/hearthmark-%2%3.deb")
        .arg(configuration_.directory, item_.version, suffix);
}

// What has the right size; its signature is yet to be checked.
bool AppcastUpdater::openKept() {
    for (int number = 0; QFile::exists(place(number)); ++number) {
        package_ = std::make_unique<QFile>(place(number));
        if (package_->size() == item_.size && package_->open(QIODevice::ReadOnly)) {
            return isKept_ = true;
        }
    }
    return isKept_ = false;
}

void AppcastUpdater::download() {
    if (!openDownload()) {
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

bool AppcastUpdater::openDownload() {
    removeOldPackages(configuration_.directory);
    isKept_ = false;
    auto file =
        std::make_unique<QTemporaryFile>(configuration_.directory + QLatin1String("/XXXXXX.part"));
    if (!file->open()) {
        fail(notStored(file->errorString()));
        return false;
    }
    package_ = std::move(file);
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
    if (key_->hasSigned(item_.version, item_.size, digest_.result(), item_.signature)) {
        return handOver();
    }
    if (isKept_) {
        return download();
    }
    fail(
        QObject::tr("The package is not signed as version %1 of Hearthmark, so it was thrown away.")
            .arg(item_.version));
}

// Gives the package a name. What lies there already may be in use.
bool AppcastUpdater::keep() {
    int number = 0;
    while (QFile::exists(place(number))) {
        ++number;
    }
    auto& file = static_cast<QTemporaryFile&>(*package_);
    file.setAutoRemove(!file.rename(place(number)));
    return !file.autoRemove();
}

void AppcastUpdater::handOver() {
    if (!isKept_ && !keep()) {
        return fail(notStored(package_->errorString()));
    }
    // From now on it is in use.
    package_->setFileTime(QDateTime::currentDateTime(), QFileDevice::FileModificationTime);
    const QString path = package_->fileName();
    stop();
    show(UpdatePhase::handingOver);
    handover_ = std::make_unique<PackageHandover>(path, [this, path](bool isTaken) {
        const QString sentence =
            isTaken
                ? QObject::tr("The package was handed to the system's installer. It lies at %1.")
                : QObject::tr("No program here installs packages. The package lies at %1.");
        show(UpdatePhase::handedOver, sentence.arg(path), path);
    });
}

bool AppcastUpdater::showPackage() {
    return openWithDesktop(configuration_.directory);
}

void AppcastUpdater::dismiss() {
    if (state_.value().phase != UpdatePhase::idle) {
        stop();
        state_.setValue({});
        canCheckForUpdates_.setValue(true);
    }
}

void AppcastUpdater::show(UpdatePhase phase, const QString& message, const QString& package) {
    state_.setValue(
        {.phase = phase,
         .version = item_.version.toStdString(),
         .notes = phase == UpdatePhase::available ? item_.notes.toStdString() : std::string(),
         .size = item_.size,
         .received = received_,
         .message = message.toStdString(),
         .package = package.toStdString()});
}

void AppcastUpdater::fail(const QString& fault) {
    stop();
    show(UpdatePhase::failed, fault);
}

void AppcastUpdater::stop() {
    transfer_.reset();
    verification_.stop();
    package_.reset();
    handover_.reset();
}

}  // namespace hearthmark::platform
