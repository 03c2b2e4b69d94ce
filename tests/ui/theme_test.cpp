// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QColor>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <algorithm>
#include <cmath>
#include <vector>

namespace {

// Of WCAG 2.1.
double luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

TEST(Theme, ShowsEveryTextAndOutlineWithEnoughContrastInBothPalettes) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int argc = 0;
    const QGuiApplication application(argc, nullptr);
    QQmlEngine engine;
    engine.addImportPath("qrc:/qt/qml");
    QQmlComponent component(&engine);
    component.setData(
        "import QtQuick\nimport Hearthmark.Controls\n"
        "QtObject { property var palettes: [Theme.light, Theme.dark] }",
        QUrl());
    const std::unique_ptr<QObject> root(component.create());
    ASSERT_TRUE(root) << component.errorString().toStdString();

    const std::vector<const char*> grounds{"window",        "sidebar",      "content",
                                           "button",        "rowHovered",   "menuHighlight",
                                           "buttonHovered", "buttonPressed"};
    struct Row {
        double least;
        std::vector<const char*> texts;
        std::vector<const char*> grounds;
    };
    const std::vector<Row> rows{
        {4.5, {"text"}, grounds},
        {4.5, {"secondaryText"}, {"window", "sidebar", "content", "rowHovered", "menuHighlight"}},
        {4.5, {"danger"}, {"content", "menuHighlight"}},
        {4.5, {"selectedText"}, {"selectedContent"}},
        {4.5, {"accentText"}, {"accent", "accentHovered", "accentPressed"}},
        {3, {"focus"}, {"window", "sidebar", "content", "menuHighlight"}},
        {3, {"fieldBorder"}, {"content"}}};
    for (const QVariant& each : root->property("palettes").toList()) {
        const auto* palette = each.value<QObject*>();
        const auto color = [palette](const char* name) {
            return palette->property(name).value<QColor>();
        };
        for (const Row& row : rows) {
            for (const char* text : row.texts) {
                for (const char* ground : row.grounds) {
                    EXPECT_GE(contrast(color(text), color(ground)), row.least)
                        << text << " on " << ground << ' ' << color("content").name().toStdString();
                }
            }
        }
    }
}

}  // namespace
