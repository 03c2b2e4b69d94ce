// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickTextDocument>
#include <QQuickView>
#include <QTest>
#include <algorithm>
#include <cstdlib>

#include "ui/typed_text.h"

namespace hearthmark::ui {
namespace {

TEST(ExpandingTextView, GrowsWithItsLinesAndTakesALineFeedByShiftedReturn) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int argc = 0;
    const QGuiApplication application(argc, nullptr);
    QQuickView view;
    view.setInitialProperties({{"minHeight", 10}, {"width", 200}, {"focus", true}});
    view.setSource(QUrl("qrc:/qt/qml/Hearthmark/Controls/ExpandingTextView.qml"));
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    const auto property = [&view](const char* name) { return view.rootObject()->property(name); };
    const auto height = [&property] { return property("height").toDouble(); };
    const double lineHeight = property("cursorRectangle").toRectF().height();
    const double oneLine = height();
    EXPECT_GE(oneLine, std::max(10.0, lineHeight));
    EXPECT_LT(oneLine, 2 * lineHeight);
    for (int i = 0; i < 60; ++i) {
        QTest::keyClick(&view, Qt::Key_M);
    }
    EXPECT_GE(height(), oneLine + 2 * lineHeight) << "for one long word";
    QTest::keyClick(&view, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(property("text"), "");
    EXPECT_EQ(height(), oneLine);
    view.rootObject()->setProperty("minHeight", 100);
    for (int step = -20; step <= 20; ++step) {
        const int lines = 21 - std::abs(step);
        EXPECT_EQ(height(), std::max(100.0, oneLine + (lines - 1) * lineHeight)) << step;
        const auto modifiers = step % 2 == 0 ? Qt::NoModifier : Qt::ShiftModifier;
        QTest::keyClick(&view, step < 0 ? Qt::Key_Return : Qt::Key_Backspace, modifiers);
    }
    QTest::keyClick(&view, Qt::Key_A);
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&view, Qt::Key_Enter, Qt::ShiftModifier | Qt::KeypadModifier);
    QGuiApplication::clipboard()->setText(QString(QChar::LineSeparator));
    QTest::keyClick(&view, Qt::Key_V, Qt::ControlModifier);
    const auto typed = [&property] {
        return typedText(*property("textDocument").value<QQuickTextDocument*>());
    };
    EXPECT_EQ(typed(), "\n\u2028") << "typed, and pasted";
    QTest::keyClick(&view, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&view, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(typed(), "a") << "undone at once with the selection that it replaced";
}

}  // namespace
}  // namespace hearthmark::ui
