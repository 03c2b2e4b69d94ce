// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <random>

#include "base/folding.h"
#include "presentation/view_model_factories.h"
#include "store/note.h"
#include "support/test_store.h"

namespace hearthmark::presentation {

using namespace std::chrono_literals;
using store::IntervalState;
using store::Task;
using tests::at;

class TaskSearchTest : public testing::Test {
 protected:
    void SetUp() override { model->startObserving(); }

    Task& addTask(const std::string& name, const std::vector<std::string>& notes) {
        Task& task = store.addTask(name, at(++tasks));
        for (const std::string& text : notes) {
            store.service->addNote(
                {.creationDate = at(++tasks), .id = base::Uuid::random(), .text = text},
                *task.id());
        }
        return task;
    }

    const TaskListViewState::View& state() { return *model->viewState().value(); }

    static std::string marked(std::string text, const std::vector<base::TextRange>& ranges) {
        std::size_t shift = 0;
        for (const base::TextRange& range : ranges) {
            text.insert(range.begin + shift++, 1, '[');
            text.insert(range.end + shift++, 1, ']');
        }
        return text;
    }

    // The tasks that match, with what is marked of the name, and of a note behind a colon. "|"
    // parts what runs from the others.
    std::string found(const std::optional<std::string>& typed = std::nullopt) {
        if (typed) {
            model->search(*typed);
        }
        std::string text;
        std::size_t count = 0;
        const auto append = [&](const auto& item) {
            if (const auto& match = item.match) {
                ++count;
                text += marked(match->name.text, match->name.marked);
                text += match->note ? ':' + marked(match->note->text, match->note->marked) : "";
                text += ' ';
            }
        };
        std::ranges::for_each(state().runningItems, append);
        text += "| ";
        std::ranges::for_each(state().nonRunningItems, append);
        EXPECT_EQ(state().matchCount.value_or(0), count);
        return text;
    }

    tests::TestStore store;
    double tasks = 0;
    std::shared_ptr<tests::FakeTimeKeepingProvider> timers =
        std::make_shared<tests::FakeTimeKeepingProvider>();
    std::shared_ptr<TaskListViewModelProtocol> model =
        TaskListVMFactory(store.service, store.liveData, timers, store.clock,
                          std::make_shared<SelectedTaskId>(std::nullopt))
            .makeViewModel();
};

TEST_F(TaskSearchTest, FindsEachWordInTheNameOrInANote) {
    addTask("Tax papers", {"Call the office", "first line\nThe receipts of M\u00fcnchen\nlast"});
    addTask("Stra\u00dfe", {});
    store.addInterval(addTask("Talk", {"about papers"}), IntervalState::running(at(1000)));
    addTask("Long", {std::string(90, 'x') + " \u00e9\u00e9\u00e9 word " + std::string(300, 'y')});
    model->openSearch();
    EXPECT_TRUE(state().isSearchOpen);
    struct Row {
        const char* typed;
        std::string found;
    };
    for (const Row& row : std::to_array<Row>({
             {"", "| "},
             {" \u0301 ", "| "},
             {"PAPER", "Talk:about [paper]s | Tax [paper]s "},
             {"paper tax", "| [Tax] [paper]s "},
             {"munch tax", "| [Tax] papers:The receipts of [M\u00fcnch]en "},
             {"office receipt", "| Tax papers:The [receipt]s of M\u00fcnchen "},
             {"strasse", "| [Stra\u00dfe] "},
             {"linethe", "| "},
             {"papersc", "| "},
             {"word",
              "| Long:\u2026\u00e9\u00e9\u00e9 [word] " + std::string(188, 'y') + "\u2026 "},
         })) {
        EXPECT_EQ(found(row.typed), row.found) << row.typed;
    }
    model->closeSearch();
    EXPECT_FALSE(state().isSearchOpen);
    EXPECT_FALSE(state().matchCount);
    EXPECT_EQ(found("tax"), "| ") << "none is open";
}

TEST_F(TaskSearchTest, FollowsWhatChangesWhileItIsOpen) {
    Task& task = addTask("a", {"note"});
    const base::Uuid id = *task.id();
    model->openSearch();
    EXPECT_EQ(found("new"), "| ");
    task.setName("new");
    store.context().save();
    EXPECT_EQ(found(), "| [new] ");
    store.first<store::Note>().setText("newer");
    task.setName("b");
    store.context().save();
    EXPECT_EQ(found(), "| b:[new]er ");
    store.first<store::Note>().setText("note");
    store.context().save();
    EXPECT_EQ(found(), "| ") << "though the task itself did not change";
    addTask("new", {});
    store.addInterval(task, IntervalState::running(at(1000)));
    EXPECT_EQ(found(), "| [new] ");
    EXPECT_EQ(found("o"), "b:n[o]te | ");
    const auto& shown = state().nonRunningItems;
    const auto before = shown;
    timers->fire();
    EXPECT_EQ(found(), "b:n[o]te | ");
    EXPECT_TRUE(state().nonRunningItems.isSame(before));
    store.service->deleteTask(id);
    EXPECT_EQ(found(), "| ");
    EXPECT_EQ(state().matchCount, 0);
}

// What is typed and taken back, and what changes meanwhile, against a search from nothing.
TEST_F(TaskSearchTest, FindsByEachKeyWhatASearchFromNothingFinds) {
    std::minstd_rand dice(20);
    const std::vector<std::string> kParts{"a", "b", "\u00e4", "\u00df", "ss", " ", "\n", "\u0130"};
    const auto word = [&](std::size_t most) {
        std::string text;
        for (auto length = dice() % most; length > 0; --length) {
            text += kParts[dice() % kParts.size()];
        }
        return text;
    };
    for (int each = 0; each < 60; ++each) {
        addTask(word(6), {word(8), word(8)});
    }
    model->openSearch();
    std::vector<std::string> typed;
    for (int key = 0; key < 400; ++key) {
        if (dice() % 4 == 0 && !typed.empty()) {
            typed.pop_back();
        } else if (typed.size() > 5) {
            typed.clear();
        } else {
            typed.insert(typed.begin() + static_cast<std::ptrdiff_t>(dice() % (typed.size() + 1)),
                         kParts[dice() % kParts.size()]);
        }
        std::string query;
        for (const std::string& part : typed) {
            query += part;
        }
        const store::Tasks all = store.context().objects<Task>();
        const Task& any = *std::next(all.begin(), static_cast<int>(dice() % all.size()));
        if (key % 5 == 0) {
            store.service->renameTask(*any.id(), word(6));
        } else if (key % 5 == 1) {
            store.service->editNote(*any.notes().front()->id(), *any.id(), word(8));
        } else if (key % 5 == 2) {
            store.service->deleteTask(*any.id());
            addTask(word(6), {word(8)});
        }
        const std::string byKeys = found(query);
        model->closeSearch();
        model->openSearch();
        ASSERT_EQ(found(query), byKeys) << query;
        std::size_t expected = 0;
        const auto words = base::foldedWords(query);
        for (const Task& task : store.context().objects<Task>()) {
            expected += !words.empty() && std::ranges::all_of(words, [&task](const auto& each) {
                const auto holds = [&each](const std::string& text) {
                    return base::folded(text).find(each) != std::string::npos;
                };
                return holds(*task.name()) ||
                       std::ranges::any_of(task.notes(), [&holds](const auto* note) {
                           return holds(*note->text());
                       });
            });
        }
        ASSERT_EQ(state().matchCount.value_or(0), expected) << query;
    }
}

}  // namespace hearthmark::presentation
