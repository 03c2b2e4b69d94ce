// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "objectstore/persistent_container.h"
#include "presentation/focus_overview_view_model.h"
#include "presentation/notes_view_state.h"
#include "presentation/task_detail_view_state.h"
#include "presentation/task_list_view_state.h"

namespace hearthmark::tests {

// What is shown, as text. "|" parts what runs from the others.

// "*" marks the selected task.
std::string text(const presentation::TaskListViewState::View& list);
// "+" says that a focus may start, or be given more time, and ">" what one is short of.
std::string text(const presentation::TaskDetailViewState::View& task);
std::string text(const presentation::NotesViewState::View& notes);
// The time of each day on which there was any, and in parentheses today's.
std::string text(const presentation::FocusOverviewViewState::View& overview);

// All of them for a whole store at a moment, and both exports of each task, a line each; the JSON
// as another reader writes it. Throws where that finds no JSON, and where a bar is longer than its
// place.
std::string shownText(const std::shared_ptr<objectstore::PersistentContainer>& container,
                      base::Date now);

}  // namespace hearthmark::tests
