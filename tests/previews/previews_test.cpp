// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QColor>
#include <QDir>
#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

#include "previews/stage.h"

namespace hearthmark::tests {

namespace {

constexpr int kMostDifference = 16;
// Less than a line of small text, or a bar.
constexpr double kMostDifferent = 0.0005;

bool differ(QRgb a, QRgb b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b))}) > kMostDifference;
}

struct Difference {
    // White where two pictures agree and red where they do not.
    QImage picture;
    double share = 0;
};

// Requires: they are of one size.
Difference difference(const QImage& a, const QImage& b) {
    Difference result{.picture = QImage(a.size(), QImage::Format_RGB32)};
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const bool isDifferent = differ(a.pixel(x, y), b.pixel(x, y));
            result.picture.setPixelColor(x, y, isDifferent ? Qt::red : Qt::white);
            result.share += isDifferent ? 1.0 / (a.width() * a.height()) : 0;
        }
    }
    return result;
}

// Of each picture that is stored beside this file.
TEST(Previews, LookAsTheyDidWhenTheyWereAccepted) {
    previews::prepareEnvironment();
    int argc = 1;
    std::string name = "previews_tests";
    std::array<char*, 2> argv{name.data(), nullptr};
    const QGuiApplication application(argc, argv.data());
    previews::Stage stage;
    const QDir stored(HEARTHMARK_STORED_PREVIEWS);
    const QDir output(HEARTHMARK_PREVIEW_DIFFERENCES);
    const QStringList files = stored.entryList({"*.png"});
    EXPECT_FALSE(files.isEmpty());
    for (const QString& file : files) {
        const auto* preview = previews::previewNamed(file.chopped(4).toStdString());
        ASSERT_NE(preview, nullptr) << "There is no preview for " << file.toStdString();
        const QImage accepted(stored.filePath(file));
        const QImage picture = stage.picture(*preview);
        const bool isOfSize = picture.size() == accepted.size();
        const Difference found = isOfSize ? difference(picture, accepted) : Difference{picture, 1};
        if (found.share > kMostDifferent) {
            picture.save(output.filePath("new-" + file));
            found.picture.save(output.filePath("difference-" + file));
            ADD_FAILURE() << found.share * 100 << "% of " << file.toStdString()
                          << " differ: see new- and difference-" << file.toStdString() << " in "
                          << output.path().toStdString();
        }
    }
}

}  // namespace

}  // namespace hearthmark::tests
