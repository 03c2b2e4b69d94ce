// SPDX-License-Identifier: MIT
//
// Usage: hearthmark_previews DIRECTORY [NAME...]
// Draws the window in all its states, or in those named, to DIRECTORY/NAME.png, and where it draws
// all, also all of them on DIRECTORY/contact-sheet.png, and that again, small and gray, to be kept.
// Fails where a view complains.
#include <QDir>
#include <QGuiApplication>
#include <cstdlib>
#include <iostream>

#include "previews/contact_sheet.h"
#include "previews/stage.h"

using namespace hearthmark;

namespace {

bool gHasComplaint = false;

void noteComplaint(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                   const QString& message) {
    gHasComplaint |= message.contains(QLatin1String("qrc:/"));
    std::cerr << message.toStdString() << std::endl;
}

int fail(const QString& message) {
    std::cerr << message.toStdString() << std::endl;
    return EXIT_FAILURE;
}

// Small rather than quick: some of them are kept.
bool save(const QImage& picture, const QString& file) {
    constexpr int kMostCompressed = 0;
    const bool isGray = picture.format() == QImage::Format_Grayscale8;
    return (isGray ? picture : picture.convertToFormat(QImage::Format_RGB32))
        .save(file, "PNG", kMostCompressed);
}

int draw(const QDir& directory, const std::vector<previews::Preview>& wanted, bool withSheet) {
    previews::Stage stage;
    std::vector<std::pair<QString, QImage>> pictures;
    pictures.reserve(wanted.size() + 1);
    for (const previews::Preview& preview : wanted) {
        pictures.emplace_back(QString::fromStdString(preview.name), stage.picture(preview));
    }
    if (withSheet) {
        const QImage sheet = previews::contactSheet(pictures);
        pictures.emplace_back(QStringLiteral("contact-sheet"), sheet);
        pictures.emplace_back(QStringLiteral("all"),
                              sheet.scaledToWidth(sheet.width() / 2, Qt::SmoothTransformation)
                                  .convertToFormat(QImage::Format_Grayscale8));
    }
    for (const auto& [name, picture] : pictures) {
        const QString file = directory.filePath(name + QStringLiteral(".png"));
        if (!save(picture, file)) {
            return fail(QStringLiteral("Cannot write %1").arg(file));
        }
    }
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    previews::prepareEnvironment();
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 2) {
        return fail(QStringLiteral("Usage: hearthmark_previews DIRECTORY [NAME...]"));
    }
    const QDir directory(arguments[1]);
    if (!directory.mkpath(QStringLiteral("."))) {
        return fail(QStringLiteral("Cannot make the directory %1").arg(arguments[1]));
    }
    std::vector<previews::Preview> wanted;
    for (const QString& name : arguments.sliced(2)) {
        const previews::Preview* preview = previews::previewNamed(name.toStdString());
        if (preview == nullptr) {
            return fail(QStringLiteral("There is no preview %1").arg(name));
        }
        wanted.push_back(*preview);
    }
    const bool isAll = wanted.empty();
    qInstallMessageHandler(&noteComplaint);
    const int result = draw(directory, isAll ? previews::allPreviews() : wanted, isAll);
    return gHasComplaint ? EXIT_FAILURE : result;
}
