// SPDX-License-Identifier: MIT
#include "export/everything_interpreter.h"

#include <charconv>
#include <cmath>

#include "base/text.h"

namespace hearthmark::exporting {

bool EverythingInterpreter::failAt(std::size_t line, const std::string& reason) {
    fault_ = "Line " + std::to_string(line) + ": " + reason;
    return false;
}

bool EverythingInterpreter::fail(const std::string& reason) {
    return failAt(line_, reason);
}

bool EverythingInterpreter::isPossible() {
    return records_.reason().empty() || fail(records_.reason());
}

bool EverythingInterpreter::takeKey(std::string_view key) {
    Frame& frame = frames_.back();
    if (frame.place == Place::done) {
        const auto id = base::Uuid::fromText(key);
        if (!id) {
            return fail(quotedStart(key) + " is not an identifier.");
        }
        doneId_ = *id;
        return !records_.isDone(*id) || fail(quotedStart(key) + " is there twice.");
    }
    const EverythingForm& form = EverythingForm::of(frame.place);
    const Member* member = form.member(key);
    if (member == nullptr) {
        const bool isTask = frames_.size() == 1 && frame.seen == 0 &&
                            EverythingForm::of(Place::task).member(key) != nullptr;
        return fail(isTask ? "This is the text of one task, as Share gives it. Only a file of "
                             "everything can be imported."
                           : quotedStart(key) + " is no part of " + std::string(form.name) + '.');
    }
    const std::uint32_t bit = 1U << static_cast<unsigned>(member - form.members.data());
    if ((frame.seen & bit) != 0) {
        return fail(quotedStart(key) + " is there twice.");
    }
    frame.seen |= bit;
    frame.member = member;
    return true;
}

bool EverythingInterpreter::isExpected(Kind kind) {
    if (frames_.empty()) {
        return kind == Kind::object || fail(kNotOfEverything);
    }
    const Frame& frame = frames_.back();
    if (frame.place == Place::done) {
        return kind == Kind::number || fail('"' + doneId_.text() + "\" has no number.");
    }
    if (EverythingForm::of(frame.place).members.empty()) {
        return kind == Kind::object || fail("What stands in the list is not an object.");
    }
    return kind == frame.member->kind || fail(quotedStart(frame.member->key) + " is not " +
                                              EverythingForm::nameOf(frame.member->kind) + '.');
}

bool EverythingInterpreter::take(Kind kind, const Value& value) {
    if (!isExpected(kind)) {
        return false;
    }
    const Frame& frame = frames_.back();
    if (frame.place == Place::done) {
        records_.setDone(doneId_, value, line_);
    } else {
        (records_.*frame.member->set)(value);
    }
    return isPossible();
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
            records_.beginTask();
            break;
        case Place::interval:
            records_.beginInterval();
            break;
        case Place::state:
            records_.beginState();
            break;
        case Place::note:
            records_.beginNote();
            break;
        default:
            break;
    }
    frames_.push_back({.place = place});
    hasBegun_ = true;
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
    const EverythingForm& form = EverythingForm::of(frame.place);
    for (std::size_t each = 0; each < form.members.size(); ++each) {
        const Member& member = form.members[each];
        if (member.isRequired && (frame.seen >> each & 1U) == 0) {
            return fail(quotedStart(member.key) + " is missing in " + std::string(form.name) + '.');
        }
    }
    frames_.pop_back();
    endOf(frame.place);
    return isPossible();
}

void EverythingInterpreter::endOf(Place place) {
    switch (place) {
        case Place::state:
            return records_.endState();
        case Place::interval:
            return records_.endInterval();
        case Place::note:
            return records_.endNote();
        case Place::task:
            return records_.endTask();
        default:
            break;
    }
}

bool EverythingInterpreter::finish() {
    const std::size_t line = records_.giveDates();
    return line == 0 || failAt(line, records_.reason());
}

}  // namespace hearthmark::exporting
