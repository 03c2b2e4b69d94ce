// SPDX-License-Identifier: MIT
#include "export/everything_form.h"

#include <algorithm>
#include <array>

namespace hearthmark::exporting {

const EverythingForm& EverythingForm::of(Place place) {
    using Records = EverythingRecords;
    using enum Kind;
    constexpr Place kNone = Place::document;
    static constexpr std::array kDocument{
        Member{"format", text, true, kNone, &Records::setFormat},
        Member{"version", wholeNumber, true, kNone, &Records::setVersion},
        Member{"tasks", array, true, Place::tasks, nullptr},
        Member{"done", object, true, Place::done, nullptr}};
    static constexpr std::array kTask{
        Member{"id", id, false, kNone, &Records::setTaskId},
        Member{"creationDate", number, false, kNone, &Records::setTaskDate},
        Member{"name", text, false, kNone, &Records::setTaskName},
        Member{"intervals", array, true, Place::intervals, nullptr},
        Member{"notes", array, true, Place::notes, nullptr}};
    static constexpr std::array kInterval{
        Member{"id", id, false, kNone, &Records::setIntervalId},
        Member{"creationDate", number, false, kNone, &Records::setIntervalDate},
        Member{"duration", number, true, kNone, &Records::setDuration},
        Member{"maxDuration", number, true, kNone, &Records::setMaxDuration},
        Member{"state", object, false, Place::state, nullptr}};
    static constexpr std::array kState{
        Member{"started", number, false, kNone, &Records::setStarted},
        Member{"state", wholeNumber, true, kNone, &Records::setState}};
    static constexpr std::array kNote{
        Member{"id", id, false, kNone, &Records::setNoteId},
        Member{"creationDate", number, false, kNone, &Records::setNoteDate},
        Member{"text", text, false, kNone, &Records::setNoteText}};
    static constexpr EverythingForm kDocumentForm{"the document", kDocument};
    static constexpr EverythingForm kTaskForm{"a task", kTask};
    static constexpr EverythingForm kIntervalForm{"an interval", kInterval};
    static constexpr EverythingForm kStateForm{"a state", kState};
    static constexpr EverythingForm kNoteForm{"a note", kNote};
    static constexpr EverythingForm kNoForm{};
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

const char* EverythingForm::nameOf(Kind kind) {
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

const EverythingForm::Member* EverythingForm::member(std::string_view key) const {
    const auto found = std::ranges::find(members, key, &Member::key);
    return found == members.end() ? nullptr : &*found;
}

}  // namespace hearthmark::exporting
