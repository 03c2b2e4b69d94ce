// SPDX-License-Identifier: MIT
#include "export/everything_interpreter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

#include "base/text.h"
#include "export/everything_document.h"

namespace hearthmark::exporting {

namespace {

// Of a key that a message repeats.
constexpr std::size_t kMostShown = 60;

std::string quoted(std::string_view key) {
    const bool isCut = key.size() > kMostShown;
    return '"' + base::withValidUtf8(key.substr(0, kMostShown)) + (isCut ? "…\"" : "\"");
}

}  // namespace

const EverythingInterpreter::Form& EverythingInterpreter::formOf(Place place) {
    using Self = EverythingInterpreter;
    using enum Kind;
    constexpr Place kNone = Place::document;
    static constexpr std::array kDocument{
        Member{"format", text, true, kNone, &Self::setFormat},
        Member{"version", wholeNumber, true, kNone, &Self::setVersion},
        Member{"tasks", array, true, Place::tasks, nullptr},
        Member{"done", object, true, Place::done, nullptr}};
    static constexpr std::array kTask{
        Member{"id", id, false, kNone, &Self::setTaskId},
        Member{"creationDate", number, false, kNone, &Self::setTaskDate},
        Member{"name", text, false, kNone, &Self::setTaskName},
        Member{"intervals", array, true, Place::intervals, nullptr},
        Member{"notes", array, true, Place::notes, nullptr}};
    static constexpr std::array kInterval{
        Member{"id", id, false, kNone, &Self::setIntervalId},
        Member{"creationDate", number, false, kNone, &Self::setIntervalDate},
        Member{"duration", number, true, kNone, &Self::setDuration},
        Member{"maxDuration", number, true, kNone, &Self::setMaxDuration},
        Member{"state", object, false, Place::state, nullptr}};
    static constexpr std::array kState{Member{"started", number, false, kNone, &Self::setStarted},
                                       Member{"state", wholeNumber, true, kNone, &Self::setState}};
    static constexpr std::array kNote{
        Member{"id", id, false, kNone, &Self::setNoteId},
        Member{"creationDate", number, false, kNone, &Self::setNoteDate},
        Member{"text", text, false, kNone, &Self::setNoteText}};
    static constexpr Form kDocumentForm{"the document", kDocument};
    static constexpr Form kTaskForm{"a task", kTask};
    static constexpr Form kIntervalForm{"an interval", kInterval};
    static constexpr Form kStateForm{"a state", kState};
    static constexpr Form kNoteForm{"a note", kNote};
    static constexpr Form kNoForm{};
    switch (place) {
        case Place::document:
            return kDocumentForm;
        case Place::task:
            return kTaskForm;
        case Place::interval:
            return kIntervalForm;
        case Place::state:
            return kStateForm;
        case Place::note:
            return kNoteForm;
        case Place::tasks:
        case Place::intervals:
        case Place::notes:
        case Place::done:
            break;
    }
    return kNoForm;
}

const char* EverythingInterpreter::nameOf(Kind kind) {
    switch (kind) {
        case Kind::text:
            return "a text";
        case Kind::id:
            return "an identifier";
        case Kind::number:
            return "a number";
        case Kind::wholeNumber:
            return "a whole number";
        case Kind::array:
            return "a list";
        case Kind::object:
            return "an object";
    }
    return "";
}

bool EverythingInterpreter::failAt(std::size_t line, const std::string& reason) {
    fault_ = "Line " + std::to_string(line) + ": " + reason;
    return false;
}

bool EverythingInterpreter::fail(const std::string& reason) {
    return failAt(line_, reason);
}

bool EverythingInterpreter::takeKey(std::string_view key) {
    Frame& frame = frames_.back();
    if (frame.place == Place::done) {
        const auto id = base::Uuid::fromText(key);
        if (!id) {
            return fail(quoted(key) + " is not an identifier.");
        }
        doneId_ = *id;
        return !done_.contains(*id) || fail(quoted(key) + " is there twice.");
    }
    const Form& form = formOf(frame.place);
    const auto member = std::ranges::find(form.members, key, &Member::key);
    if (member == form.members.end()) {
        const bool isTask = frames_.size() == 1 && frame.seen == 0 &&
                            std::ranges::find(formOf(Place::task).members, key, &Member::key) !=
                                formOf(Place::task).members.end();
        return fail(isTask ? "This is the text of one task, as Share gives it. Only a file of "
                             "everything can be imported."
                           : quoted(key) + " is no part of " + std::string(form.name) + '.');
    }
    const std::uint32_t bit = 1U << static_cast<unsigned>(member - form.members.begin());
    if ((frame.seen & bit) != 0) {
        return fail(quoted(key) + " is there twice.");
    }
    frame.seen |= bit;
    frame.member = &*member;
    return true;
}

bool EverythingInterpreter::isExpected(Kind kind) {
    if (frames_.empty()) {
        return kind == Kind::object || fail("This is not a file of everything.");
    }
    const Frame& frame = frames_.back();
    if (frame.place == Place::done) {
        return kind == Kind::number || fail('"' + doneId_.text() + "\" has no number.");
    }
    if (formOf(frame.place).members.empty()) {
        return kind == Kind::object || fail("What stands in the list is not an object.");
    }
    return kind == frame.member->kind ||
           fail(quoted(frame.member->key) + " is not " + nameOf(frame.member->kind) + '.');
}

bool EverythingInterpreter::take(Kind kind, const Value& value) {
    if (!isExpected(kind)) {
        return false;
    }
    const Frame& frame = frames_.back();
    if (frame.place == Place::done) {
        done_.emplace(doneId_, Done{base::Date(base::Seconds(value.number)), line_});
    } else {
        (this->*frame.member->set)(value);
    }
    return fault_.empty();
}

bool EverythingInterpreter::takeText(std::string_view text) {
    const bool isId = !frames_.empty() && frames_.back().member != nullptr &&
                      frames_.back().member->kind == Kind::id;
    if (isId) {
        const auto id = base::Uuid::fromText(text);
        // Any other kind is told to be none.
        return take(id ? Kind::id : Kind::text, {.text = text, .id = id.value_or(base::Uuid())});
    }
    if (!base::isValidUtf8(text)) {
        return fail("The text is not valid UTF-8.");
    }
    return take(Kind::text, {.text = text});
}

bool EverythingInterpreter::takeNumber(std::string_view digits) {
    Value value;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value.number);
    if (result.ec != std::errc() || !std::isfinite(value.number)) {
        return fail("The number is out of range.");
    }
    const bool isWholeWanted = !frames_.empty() && frames_.back().member != nullptr &&
                               frames_.back().member->kind == Kind::wholeNumber;
    const bool isWhole = std::trunc(value.number) == value.number;
    return take(isWholeWanted && isWhole ? Kind::wholeNumber : Kind::number, value);
}

bool EverythingInterpreter::takeOther() {
    // No kind of value is expected anywhere that it could be.
    return isExpected(frames_.empty() ? Kind::text : Kind::array) &&
           fail("Neither null nor true nor false stands anywhere in such a file.");
}

bool EverythingInterpreter::begin(Kind kind) {
    if (!isExpected(kind)) {
        return false;
    }
    const Place place = placeInside();
    switch (place) {
        case Place::task:
            task_ = {};
            break;
        case Place::interval:
            interval_ = {};
            break;
        case Place::state:
            state_ = {};
            break;
        case Place::note:
            note_ = {};
            break;
        default:
            break;
    }
    frames_.push_back({.place = place});
    return true;
}

EverythingInterpreter::Place EverythingInterpreter::placeInside() const {
    if (frames_.empty()) {
        return Place::document;
    }
    const Frame& frame = frames_.back();
    switch (frame.place) {
        case Place::tasks:
            return Place::task;
        case Place::intervals:
            return Place::interval;
        case Place::notes:
            return Place::note;
        default:
            return frame.member->inside;
    }
}

bool EverythingInterpreter::beginObject() {
    return begin(Kind::object);
}

bool EverythingInterpreter::beginArray() {
    return begin(Kind::array);
}

bool EverythingInterpreter::endArray() {
    frames_.pop_back();
    return true;
}

bool EverythingInterpreter::endObject() {
    const Frame frame = frames_.back();
    const Form& form = formOf(frame.place);
    for (std::size_t each = 0; each < form.members.size(); ++each) {
        const Member& member = form.members[each];
        if (member.isRequired && (frame.seen >> each & 1U) == 0) {
            return fail(quoted(member.key) + " is missing in " + std::string(form.name) + '.');
        }
    }
    frames_.pop_back();
    endOf(frame.place);
    return fault_.empty();
}

bool EverythingInterpreter::isNewId(const std::optional<base::Uuid>& id,
                                    std::unordered_set<base::Uuid>& ids) {
    return !id || ids.insert(*id).second || fail('"' + id->text() + "\" is there twice.");
}

void EverythingInterpreter::endOf(Place place) {
    switch (place) {
        case Place::state:
            interval_.rawState = state_;
            break;
        case Place::interval:
            isNewId(interval_.id, intervalIds_);
            task_.intervals.push_back(interval_);
            break;
        case Place::note:
            isNewId(note_.id, noteIds_);
            task_.notes.push_back(std::move(note_));
            break;
        case Place::task:
            isNewId(task_.id, taskIds_);
            tasks_.push_back(std::move(task_));
            break;
        default:
            break;
    }
}

bool EverythingInterpreter::finish() {
    for (store::TaskRecord& task : tasks_) {
        if (const auto done = task.id ? done_.find(*task.id) : done_.end(); done != done_.end()) {
            task.doneDate = done->second.date;
            done_.erase(done);
        }
    }
    const auto first =
        std::ranges::min_element(done_, {}, [](const auto& entry) { return entry.second.line; });
    return first == done_.end() ||
           failAt(first->second.line, '"' + first->first.text() + "\" is none of the tasks.");
}

void EverythingInterpreter::setFormat(const Value& value) {
    if (value.text != kEverythingFormat) {
        fail("This is not a file of everything: \"format\" is " + quoted(value.text) + '.');
    }
}

void EverythingInterpreter::setVersion(const Value& value) {
    if (value.number > kEverythingVersion) {
        fail("A newer version of Hearthmark wrote the file.");
    } else if (value.number != kEverythingVersion) {
        fail("\"version\" is none that there was.");
    }
}

void EverythingInterpreter::setTaskId(const Value& value) {
    task_.id = value.id;
}

void EverythingInterpreter::setTaskDate(const Value& value) {
    task_.creationDate = base::Date(base::Seconds(value.number));
}

void EverythingInterpreter::setTaskName(const Value& value) {
    task_.name = value.text;
}

void EverythingInterpreter::setIntervalId(const Value& value) {
    interval_.id = value.id;
}

void EverythingInterpreter::setIntervalDate(const Value& value) {
    interval_.creationDate = base::Date(base::Seconds(value.number));
}

void EverythingInterpreter::setDuration(const Value& value) {
    interval_.duration = base::Seconds(value.number);
}

void EverythingInterpreter::setMaxDuration(const Value& value) {
    interval_.maxDuration = base::Seconds(value.number);
}

void EverythingInterpreter::setStarted(const Value& value) {
    state_.started = base::Date(base::Seconds(value.number));
}

void EverythingInterpreter::setState(const Value& value) {
    using Limits = std::numeric_limits<std::int16_t>;
    if (value.number < Limits::min() || value.number > Limits::max()) {
        fail("\"state\" is out of range.");
        return;
    }
    state_.state = static_cast<std::int16_t>(value.number);
}

void EverythingInterpreter::setNoteId(const Value& value) {
    note_.id = value.id;
}

void EverythingInterpreter::setNoteDate(const Value& value) {
    note_.creationDate = base::Date(base::Seconds(value.number));
}

void EverythingInterpreter::setNoteText(const Value& value) {
    note_.text = value.text;
}

}  // namespace hearthmark::exporting
