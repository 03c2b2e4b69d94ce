// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>
#include <algorithm>
#include <optional>

namespace {

// An editor of 200 pixels' width, alone in a window.
class ExpandingTextView : public testing::Test {
 protected:
    static void SetUpTestSuite() {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application.emplace(argc, nullptr);
    }
    static void TearDownTestSuite() { application.reset(); }
    void SetUp() override {
        view.setInitialProperties({{"minHeight", 10}, {"width", 200}, {"focus", true}});
        view.setSource(QUrl("qrc:/qt/qml/Hearthmark/Controls/ExpandingTextView.qml"));
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    }
    void press(Qt::Key key, Qt::KeyboardModifiers with = {}) { QTest::keyClick(&view, key, with); }
    QVariant property(const char* name) const { return view.rootObject()->property(name); }
    double height() const { return property("height").toDouble(); }
    double lineHeight() const { return property("cursorRectangle").toRectF().height(); }

    static inline int argc = 0;
    static inline std::optional<QGuiApplication> application;
    QQuickView view;
};

TEST_F(ExpandingTextView, GrowsAndShrinksLineByLineAboveItsMinimum) {
    const double oneLine = height();
    EXPECT_GE(oneLine, std::max(10.0, lineHeight()));
    EXPECT_LT(oneLine, 2 * lineHeight());
    view.rootObject()->setProperty("minHeight", 100);
    for (int step = -20; step <= 20; ++step) {
        const int lines = 21 - std::abs(step);
        EXPECT_EQ(height(), std::max(100.0, oneLine + (lines - 1) * lineHeight())) << step;
        press(step < 0 ? Qt::Key_Return : Qt::Key_Backspace);
    }
}

TEST_F(ExpandingTextView, WrapsALongWordAndUndoesWhatWasTyped) {
    const double oneLine = height();
    for (int i = 0; i < 60; ++i) {
        press(Qt::Key_M);
    }
    EXPECT_GE(height(), oneLine + 2 * lineHeight());
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(property("text"), "");
    EXPECT_EQ(height(), oneLine);
}

}  // namespace
