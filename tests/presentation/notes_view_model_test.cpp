// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "presentation/view_model_factories.h"
#include "store/note.h"
#include "support/test_store.h"

namespace hearthmark::presentation {

struct NotesViewModelTest : testing::Test {
    void SetUp() override {
        store.clock->step = base::Seconds(1000);
        id = *store.addTask("task").id();
        store.reopen(R"(INSERT INTO Task(pk) VALUES (2); INSERT INTO Note VALUES
            (1, 'C0000000-0000-4000-8000-000000000001', 10, 'old', 1), (2, NULL, 20, 'lost', 1),
            (3, 'C0000000-0000-4000-8000-000000000003', 30, NULL, 1),
            (4, 'C0000000-0000-4000-8000-000000000004', 20, 'new', 1),
            (5, 'C0000000-0000-4000-8000-000000000005', 20, 'other', 2))");
        drafts = std::make_shared<NoteDrafts>(store.service, *store.liveData);
        model = makeModel();
        EXPECT_FALSE(model->viewState().value());
        model->startObserving();
    }
    std::shared_ptr<NotesViewModelProtocol> makeModel() const {
        return NotesVMFactory(store.service, store.liveData, store.clock, drafts, id)
            .makeViewModel();
    }
    // A copy, so that an action outlives its call.
    NotesViewState::View view() const { return model->viewState().value().value(); }
    // "+" says that a note can be added; the pending one stands in brackets.
    std::string text() const {
        std::string text = view().canAddNote ? "+" : "";
        for (const auto& note : view().committedNotes) {
            text += note.noteText + ' ';
        }
        return view().pendingNote ? text + '[' + view().pendingNote->noteText + ']' : text;
    }

    tests::TestStore store;
    base::Uuid id;
    std::shared_ptr<NoteDrafts> drafts;
    std::shared_ptr<NotesViewModelProtocol> model;
};

TEST_F(NotesViewModelTest, SavesTheNoteOpenedLastTrimmedAndDatedWhenItWasOpened) {
    for (const char* changed : {"changed", "old"}) {
        store.first<store::Note>().setText(changed);
        store.first<store::Task>().setName("task");  // which tells of it
        store.context().save();
        EXPECT_EQ(text(), std::string("+- new ") + changed + ' ') << "newest first";
    }
    (*view().onAddNoteTapped)();
    EXPECT_EQ(text(), "- new old []");
    (*view().onAddNoteTapped)();
    (*view().pendingNote.value().onSaveTap)(" \n\u00a0\u2003");
    (*view().committedNotes[1].onDeleteCommand)();
    EXPECT_EQ(text(), "- old []") << "stays open where it is blank and where others change";
    (*view().pendingNote.value().onSaveTap)("\u2003two  words\u00a0\n");
    EXPECT_EQ(text(), "+two  words - old ");
    (*view().onAddNoteTapped)();
    (*view().pendingNote.value().onDiscardTap)();
    EXPECT_EQ(text(), "+two  words - old ");
    (*view().onAddNoteTapped)();
    (*view().pendingNote.value().onSaveTap)("b");
    EXPECT_EQ(store.sql("SELECT creationDate, text, task FROM Note WHERE pk > 5"),
              "2000.0|two  words|1 4000.0|b|1");
    EXPECT_EQ(store.sql("SELECT count(DISTINCT id) FROM Note WHERE pk > 5"), "2");
}

TEST_F(NotesViewModelTest, DoesNothingOnceItsTaskOrItIsGone) {
    (*view().onAddNoteTapped)();
    const NotesViewState::View last = view();
    store.service->editNote(last.committedNotes[0].id, id, "edited");
    EXPECT_EQ(text(), "edited new old []");
    store.service->undo(*store.service->latestChange().value());
    store.service->deleteTask(*store.first<store::Task>().id());
    (*view().onAddNoteTapped)();
    EXPECT_EQ(text(), "");
    store.service->undo(*store.service->latestChange().value());
    model.reset();
    (*last.onAddNoteTapped)();
    (*last.pendingNote->onSaveTap)("late");
    (*last.pendingNote->onDiscardTap)();
    (*last.committedNotes[0].onDeleteCommand)();
    EXPECT_EQ(store.sql("SELECT count(*) FROM Note WHERE task"), "5");
}

TEST_F(NotesViewModelTest, KeepsTheDraftOfItsTaskUntilItIsSavedOrDiscarded) {
    (*view().onAddNoteTapped)();
    int states = 0;
    const auto counting = model->viewState().subscribeDidChange([&states] { ++states; });
    (*view().pendingNote.value().onEdit)("half ");
    EXPECT_EQ(text(), "- new old [half ]");
    EXPECT_EQ(states, 0) << "not for each key";
    (*view().committedNotes[1].onDeleteCommand)();
    EXPECT_EQ(text(), "- old [half ]") << "after a rebuild";
    store.service->deleteTask(id);
    EXPECT_EQ(text(), "");
    store.service->undo(*store.service->latestChange().value());
    EXPECT_EQ(text(), "- old [half ]");
    model = makeModel();
    model->startObserving();
    EXPECT_EQ(text(), "- old [half ]") << "by the next model";
    (*view().pendingNote.value().onDiscardTap)();
    model = makeModel();
    model->startObserving();
    EXPECT_EQ(text(), "+- old ");
}

TEST_F(NotesViewModelTest, MakesNotesOfTheDraftsThatAreNotBlankAndHaveATask) {
    drafts->draft(base::Uuid::random());
    (*view().onAddNoteTapped)();
    (*view().pendingNote.value().onEdit)(" \n");
    drafts->save();
    EXPECT_EQ(text(), "- new old [ \n]");
    (*view().pendingNote.value().onEdit)(" half\n");
    store.service->deleteTask(id);
    drafts->save();
    store.service->undo(*store.service->latestChange().value());
    EXPECT_EQ(text(), "- new old [ half\n]") << "not lost with a task that may come back";
    model.reset();
    drafts->draft(base::Uuid());
    drafts->save();
    drafts->save();
    EXPECT_EQ(store.sql("SELECT creationDate, text FROM Note WHERE text LIKE '%half%'"),
              "1000.0|half");
}

// Each row types into what it begins to edit, saves, and says what is stored then and what is still
// being edited.
TEST_F(NotesViewModelTest, StoresANameOrNoteThatWasEditedInItsPlace) {
    const base::Uuid note = *base::Uuid::fromText("C0000000-0000-4000-8000-000000000004");
    const base::Uuid gone = base::Uuid::random();
    const auto edit = TextEditVMFactory(store.service, store.liveData, drafts, id).makeViewModel();
    edit->startObserving();
    struct Case {
        const char* what;
        std::optional<base::Uuid> begun;
        std::optional<std::string> typed;
        std::string stored;
        std::optional<std::string> left;
    };
    const std::string kStored = " task |new";
    store.service->renameTask(id, " task ");
    for (const Case& each : std::vector<Case>{
             {"not touched", {}, {}, kStored, {}},
             {"blank", {}, " \u2003", kStored, " \u2003"},
             {"another one, after a blank name", note, "\nsecond\u00a0", " task |second", {}},
             {"the same with blanks", note, " second ", " task |second", {}},
             {"not there", gone, "x", " task |second", {}},
             {"a name", {}, " a  b\n", "a  b|second", {}},
             {"emptied", note, "\n", "a  b|NULL", {}}}) {
        each.begun ? edit->editNote(*each.begun) : edit->editName();
        if (each.typed) {
            edit->type(*each.typed);
        }
        edit->save();
        EXPECT_EQ(store.sql("SELECT t.name, n.text FROM Task t LEFT JOIN Note n ON n.pk = 4 AND"
                            " n.task = t.pk WHERE t.pk = 1"),
                  each.stored)
            << each.what;
        const auto& left = edit->viewState().value().edit;
        EXPECT_EQ(left ? std::optional(left->text) : std::nullopt, each.left) << each.what;
    }
}

TEST_F(NotesViewModelTest, KeepsWhatIsBeingEditedUntilItIsSavedOrLeft) {
    const auto makeEdit = [this] {
        auto edit = TextEditVMFactory(store.service, store.liveData, drafts, id).makeViewModel();
        edit->startObserving();
        return edit;
    };
    auto edit = makeEdit();
    const auto typed = [&edit] {
        const auto& now = edit->viewState().value().edit;
        return now ? now->text : "none";
    };
    const auto stored = [this] {
        return store.sql(
            "SELECT name, text FROM Task t, Note n WHERE"
            " t.pk = 1 AND n.pk = 4");
    };
    edit->editNote(*base::Uuid::fromText("C0000000-0000-4000-8000-000000000004"));
    edit->type("half ");
    int states = 0;
    const auto counting = edit->viewState().subscribeDidChange([&states] { ++states; });
    edit->type("half a ");
    store.service->renameTask(id, "renamed");
    (*view().committedNotes[2].onDeleteCommand)();
    EXPECT_EQ(states, 0) << "neither for a key nor for what is changed elsewhere";
    edit = makeEdit();
    EXPECT_EQ(typed(), "half a ") << "by the next model";
    (*view().committedNotes[1].onDeleteCommand)();
    EXPECT_EQ(typed(), "none") << "while its note is gone";
    store.service->undo(*store.service->latestChange().value());
    EXPECT_EQ(typed(), "half a ");
    edit->editName();
    EXPECT_EQ(typed() + ' ' + stored(), "renamed renamed|half a") << "not lost by another edit";
    edit->type("x");
    edit->leave();
    drafts->save();
    EXPECT_EQ(typed() + ' ' + stored(), "none renamed|half a");
    edit->editName();
    edit->type(" at the end");
    drafts->save();
    EXPECT_EQ(stored(), "at the end|half a") << "as a half-written note is";
}

}  // namespace hearthmark::presentation
