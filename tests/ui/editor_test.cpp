// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QQuickItem>
#include <QQuickTextDocument>
#include <QQuickView>
#include <QTest>
#include <algorithm>
#include <cstdlib>
#include <optional>

#include "ui/notes/notes_adapter.h"
#include "ui/text/text_binding.h"
#include "ui/text/typed_text.h"

namespace hearthmark::ui {
namespace {

// An editor with the keyboard in it.
class ExpandingTextView : public testing::Test {
 protected:
    ExpandingTextView() : application_((qputenv("QT_QPA_PLATFORM", "offscreen"), argc_), nullptr) {
        view.setInitialProperties({{"minHeight", 10}, {"width", 200}, {"focus", true}});
        view.setSource(QUrl("qrc:/qt/qml/Hearthmark/Controls/ExpandingTextView.qml"));
        view.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    }

    QVariant property(const char* name) const { return view.rootObject()->property(name); }
    double height() const { return property("height").toDouble(); }
    void type(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&view, key, modifiers);
    }

 private:
    int argc_ = 0;
    const QGuiApplication application_;

 protected:
    QQuickView view;
};

TEST_F(ExpandingTextView, GrowsWithItsLinesAndTakesALineFeedByShiftedReturn) {
    const double lineHeight = property("cursorRectangle").toRectF().height();
    const double oneLine = height();
    EXPECT_GE(oneLine, std::max(10.0, lineHeight));
    EXPECT_LT(oneLine, 2 * lineHeight);
    for (int i = 0; i < 60; ++i) {
        type(Qt::Key_M);
    }
    EXPECT_GE(height(), oneLine + 2 * lineHeight) << "for one long word";
    type(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(property("text"), "");
    EXPECT_EQ(height(), oneLine);
    view.rootObject()->setProperty("minHeight", 100);
    for (int step = -20; step <= 20; ++step) {
        const int lines = 21 - std::abs(step);
        EXPECT_EQ(height(), std::max(100.0, oneLine + (lines - 1) * lineHeight)) << step;
        type(step < 0 ? Qt::Key_Return : Qt::Key_Backspace,
             step % 2 == 0 ? Qt::NoModifier : Qt::ShiftModifier);
    }
    type(Qt::Key_A);
    type(Qt::Key_A, Qt::ControlModifier);
    type(Qt::Key_Enter, Qt::ShiftModifier | Qt::KeypadModifier);
    QGuiApplication::clipboard()->setText(QString(QChar::LineSeparator));
    type(Qt::Key_V, Qt::ControlModifier);
    const auto typed = [this] {
        return typedText(*property("textDocument").value<QQuickTextDocument*>());
    };
    EXPECT_EQ(typed(), "\n\u2028") << "typed, and pasted";
    type(Qt::Key_Z, Qt::ControlModifier);
    type(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(typed(), "a") << "undone at once with the selection that it replaced";
}

struct NotesModel final : presentation::NotesViewModelProtocol {
    using State = presentation::NotesViewState;

    livedata::Published<std::optional<State::View>>& viewState() override { return state; }
    void startObserving() override {}

    void write(const std::string& text) {
        const auto onEdit =
            std::make_shared<const livedata::Block<std::string>>([this](const std::string& typed) {
                state.amend([&](auto& view) { view->pendingNote->noteText = typed; });
            });
        state.setValue(State::View{.canAddNote = false,
                                   .onAddNoteTapped = nullptr,
                                   .committedNotes = {},
                                   .pendingNote = State::PendingNote{.noteText = text,
                                                                     .save = "",
                                                                     .onSaveTap = nullptr,
                                                                     .discard = "",
                                                                     .onDiscardTap = nullptr,
                                                                     .onEdit = onEdit}});
    }
    std::string text() const { return state.value()->pendingNote->noteText; }

    livedata::Published<std::optional<State::View>> state;
};

TEST_F(ExpandingTextView, IsTheSameAsTheOpenNoteBothWays) {
    const auto a = std::make_shared<NotesModel>();
    const auto b = std::make_shared<NotesModel>();
    NotesAdapter adapterOfA(a);
    NotesAdapter adapterOfB(b);
    TextBinding binding;
    binding.setAdapter(&adapterOfA);
    binding.setDocument(property("textDocument").value<QQuickTextDocument*>());
    type(Qt::Key_X);
    EXPECT_FALSE(adapterOfA.loaded() || adapterOfA.canAddNote())
        << "nothing while it is not loaded";
    a->write("ab\u00a0");
    type(Qt::Key_Left);
    type(Qt::Key_C);
    EXPECT_EQ(a->text(), "abc\u00a0") << "after the text, and exactly";
    a->write(a->text());
    type(Qt::Key_D);
    EXPECT_EQ(a->text(), "abcd\u00a0") << "where the cursor was";
    type(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(a->text(), "ab\u00a0") << "with its undo history";
    QInputMethodEvent composing("ko", {});
    QCoreApplication::sendEvent(QGuiApplication::focusObject(), &composing);
    a->write(a->text());
    QInputMethodEvent composed;
    composed.setCommitString("こ");
    QCoreApplication::sendEvent(QGuiApplication::focusObject(), &composed);
    EXPECT_EQ(a->text(), "abこ\u00a0") << "with what was being composed";
    b->write(a->text());
    binding.setAdapter(&adapterOfB);
    type(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(b->text(), a->text()) << "and without that of another note";
    type(Qt::Key_E);
    b->write("new");
    EXPECT_EQ(property("text"), "new");
    EXPECT_EQ(a->text() + b->text(), "abこ\u00a0new");
}

}  // namespace
}  // namespace hearthmark::ui
