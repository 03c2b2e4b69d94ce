// SPDX-License-Identifier: MIT
#include "presentation/task_search.h"

#include <algorithm>
#include <utility>

#include "base/folding.h"
#include "base/found_ranges.h"
#include "base/text.h"
#include "presentation/texts.h"
#include "store/note.h"

namespace hearthmark::presentation {

namespace {

using Words = std::vector<std::string>;

// Bytes. What stands before the word is short, so that it is in sight in a narrow list.
constexpr std::size_t kBeforeWord = 24;
constexpr std::size_t kLineLength = 200;
constexpr auto kCut = "…";
constexpr auto kLineEnds = "\n\r";

bool holds(std::string_view fold, const std::string& word) {
    return fold.find(word) != std::string_view::npos;
}

bool isBetweenCharacters(std::string_view text, std::size_t at) {
    return at >= text.size() || base::beginsCharacter(text[at]);
}

// The line around the place, without what is far from it.
std::string lineAround(std::string_view text, std::size_t place) {
    std::size_t begin = text.find_last_of(kLineEnds, place) + 1;
    std::size_t end = std::min(text.find_first_of(kLineEnds, place), text.size());
    std::string before;
    std::string after;
    if (place - begin > kBeforeWord) {
        before = kCut;
        begin = place - kBeforeWord;
        while (begin < place && !isBetweenCharacters(text, begin)) {
            ++begin;
        }
        const std::size_t space = text.find(' ', begin);
        begin = space < place ? space + 1 : begin;
    }
    if (end - begin > kLineLength) {
        after = kCut;
        end = begin + kLineLength;
        while (end > place && !isBetweenCharacters(text, end)) {
            --end;
        }
    }
    return before + std::string(base::trimmed(text.substr(begin, end - begin))) + after;
}

// Whether what holds the new words holds the old ones, too.
bool haveGrown(const Words& old, const Words& words) {
    return !old.empty() && std::ranges::all_of(old, [&words](const std::string& before) {
        return std::ranges::any_of(
            words, [&before](const std::string& now) { return holds(now, before); });
    });
}

}  // namespace

bool TaskSearch::Texts::isOf(const store::Task& task) const {
    return id == task.id() && name == task.name() && notes == task.newestNotes();
}

TaskSearch::Texts TaskSearch::textsOf(const store::Task& task) {
    Texts texts{.id = task.id(),
                .name = task.name(),
                .notes = task.newestNotes(),
                .fold = base::folded(orDash(task.name())),
                .noteBegins = {},
                .match = {}};
    std::size_t size = texts.fold.size();
    for (const store::Note* note : *texts.notes) {
        size += 1 + (note->text() ? note->text()->size() : 0);
    }
    texts.fold.reserve(size);
    texts.noteBegins.reserve(texts.notes->size());
    for (const store::Note* note : *texts.notes) {
        texts.fold += '\n';
        texts.noteBegins.push_back(texts.fold.size());
        texts.fold += note->text() ? base::folded(*note->text()) : "";
    }
    return texts;
}

bool TaskSearch::follow(const store::Tasks& tasks) {
    ++round_;
    bool isChanged = false;
    for (const store::Task& task : tasks) {
        Texts& texts = texts_[&task];
        if (!texts.isOf(task)) {
            texts = textsOf(task);
            look(task, texts);
            isChanged = true;
        }
        texts.round = round_;
    }
    const auto isGone = [this](const auto& entry) { return entry.second.round != round_; };
    isChanged |= std::erase_if(texts_, isGone) > 0;
    count();
    return isChanged && hasWords();
}

bool TaskSearch::setWords(std::string_view typed) {
    Words words = base::foldedWords(typed);
    if (words == words_) {
        return false;
    }
    const bool isGrown = haveGrown(words_, words);
    words_ = std::move(words);
    for (auto& [task, texts] : texts_) {
        if (!isGrown || texts.match) {
            look(*task, texts);
        }
    }
    count();
    return true;
}

std::shared_ptr<const TaskListViewState::Match> TaskSearch::match(const store::Task& task) const {
    const auto found = texts_.find(&task);
    return found != texts_.end() ? found->second.match : nullptr;
}

void TaskSearch::count() {
    matchCount_ = static_cast<std::size_t>(std::ranges::count_if(
        texts_, [](const auto& entry) { return entry.second.match != nullptr; }));
}

void TaskSearch::look(const store::Task& task, Texts& texts) {
    texts.match.reset();
    // Without an id it is not in the list.
    if (words_.empty() || !task.id() || !base::holdsAll(texts.fold, words_)) {
        return;
    }
    const std::string name = orDash(task.name());
    texts.match = std::make_shared<const TaskListViewState::Match>(TaskListViewState::Match{
        .name = {.text = name, .marked = base::rangesOfWords(name, words_)},
        .note = foundLine(texts)});
}

std::optional<TaskListViewState::FoundText> TaskSearch::foundLine(const Texts& texts) const {
    if (texts.noteBegins.empty()) {
        return std::nullopt;
    }
    const std::size_t firstNote = texts.noteBegins.front();
    const auto name = std::string_view(texts.fold).substr(0, firstNote);
    std::size_t found = std::string::npos;
    for (const std::string& word : words_) {
        if (!holds(name, word)) {
            found = std::min(found, texts.fold.find(word, firstNote));
        }
    }
    if (found == std::string::npos) {
        return std::nullopt;
    }
    const auto next = std::ranges::upper_bound(texts.noteBegins, found);
    const auto note = static_cast<std::size_t>(next - texts.noteBegins.begin()) - 1;
    const std::string& text = *(*texts.notes)[note]->text();
    std::string line = lineAround(text, base::originOfFolded(text, found - texts.noteBegins[note]));
    std::vector<base::TextRange> marked = base::rangesOfWords(line, words_);
    return TaskListViewState::FoundText{.text = std::move(line), .marked = std::move(marked)};
}

}  // namespace hearthmark::presentation
