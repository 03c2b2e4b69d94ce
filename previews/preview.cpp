// SPDX-License-Identifier: MIT
#include "previews/preview.h"

#include <algorithm>
#include <iterator>

namespace hearthmark::previews {

namespace {

using Phase = exporting::FileTransferViewState::Phase;
using services::UpdatePhase;

constexpr auto kRunning = "Prepare the talk on bird migration";
constexpr auto kIdle = "Tax papers";
constexpr auto kRestore = "Restore from a backup…";
constexpr auto kExport = "Export Everything…";
constexpr auto kImport = "Import…";
constexpr auto kSentences =
    "Find out when the swallows left, and from where; then ask again in the autumn. The data of "
    "last year are with the reserve, the weather with the observatory.";

QStringList times(int count, const QString& key) {
    QStringList keys;
    keys.fill(key, count);
    return keys;
}

const std::string kPackage = "/home/you/.cache/Hearthmark/updates/hearthmark_0.2.0_amd64.deb";

services::UpdateState update(UpdatePhase phase, std::int64_t received = 0,
                             const std::string& message = {}, const std::string& package = {}) {
    return {
        .phase = phase,
        .version = "0.2.0",
        .notes = phase == UpdatePhase::available
                     ? "The chart shows a month.\nNotes can be edited.\nThe list can be searched."
                     : "",
        .size = 4'812'000,
        .received = received,
        .message = message,
        .package = package};
}

exporting::FileTransferViewState transfer(Phase phase) {
    exporting::FileTransferViewState state;
    state.phase = phase;
    state.isImport = phase == Phase::deciding || phase == Phase::failed;
    state.isPresented = true;
    state.path = "~/Documents/Hearthmark 2026-05-14.json";
    state.share = 0.4;
    state.counts = {.tasks = 3, .intervals = 120, .notes = 14, .withoutId = 2};
    state.leftOut.names = {"Sums", std::nullopt};
    state.reason = "Line 214: a task has two names.";
    return state;
}

}  // namespace

QString longWord() {
    return QStringLiteral("Donaudampfschifffahrtsgesellschaft").repeated(9).left(300);
}

namespace {

std::vector<Preview> previewsOfUsualTexts() {
    const QStringList toNotes = times(2, "Shift+Tab");
    return {
        {.name = "tasks-loading", .content = Content::loadingTasks, .size = {300, 420}},
        {.name = "home-empty", .content = Content::noTasks},
        {.name = "home-unselected"},
        {.name = "home-running", .selection = kRunning},
        {.name = "home-idle", .selection = kIdle},
        {.name = "home-long-texts",
         .content = Content::longTexts,
         .selection = longWord(),
         .size = {900, 1000}},
        {.name = "home-many-tasks", .content = Content::manyTasks},
        {.name = "home-many-tasks-scrolled",
         .content = Content::manyTasks,
         .keys = times(20, "Down")},
        {.name = "home-unselected-dark", .palette = Palette::dark},
        {.name = "home-running-dark", .selection = kRunning, .palette = Palette::dark},
        {.name = "home-unselected-right-to-left", .direction = Qt::RightToLeft},
        {.name = "home-running-right-to-left", .selection = kRunning, .direction = Qt::RightToLeft},
        {.name = "home-running-150-percent", .selection = kRunning, .scale = 1.5},
        {.name = "home-running-200-percent", .selection = kRunning, .scale = 2},
        {.name = "home-running-smallest", .selection = kRunning, .size = {640, 420}},
        {.name = "home-undo", .keys = {"Down", "Down", "Delete"}},
        {.name = "home-finished",
         .selection = kRunning,
         .unseenFinishes = {"Tax papers", "Call the landlord about the window"}},
        {.name = "home-note", .selection = kIdle, .keys = {"Ctrl+Shift+N"}, .typed = kSentences},
        {.name = "home-edit-name", .selection = kRunning, .keys = {"F2"}},
        {.name = "home-edit-name-right-to-left",
         .selection = kRunning,
         .keys = {"F2"},
         .direction = Qt::RightToLeft},
        {.name = "home-edit-name-button", .selection = kIdle, .keys = times(4, "Tab")},
        {.name = "home-edit-note",
         .selection = kRunning,
         .keys = toNotes + QStringList{"F2", "Return"},
         .typed = kSentences},
        {.name = "home-edit-note-right-to-left",
         .selection = kRunning,
         .keys = toNotes + QStringList{"F2"},
         .direction = Qt::RightToLeft},
        {.name = "home-edit-note-emptied",
         .selection = kRunning,
         .keys = toNotes + QStringList{"F2", "Ctrl+A", "Delete"}},
        {.name = "home-edit-note-button", .selection = kRunning, .keys = toNotes},
        {.name = "home-long-note",
         .content = Content::longNote,
         .selection = kLongNote,
         .keys = times(3, "Shift+Tab")},
        {.name = "whole-note",
         .content = Content::longNote,
         .selection = kLongNote,
         .keys = {"Shift+Tab", "Shift+Tab", "Shift+Tab", "Space"}},
        {.name = "home-continue", .selection = kRunning, .keys = {"Ctrl+Shift+F"}},
        {.name = "home-continue-right-to-left",
         .selection = kRunning,
         .keys = {"Ctrl+Shift+F"},
         .direction = Qt::RightToLeft},
        {.name = "own-length",
         .selection = kRunning,
         .keys = {"Ctrl+Shift+F", "Ctrl+3"},
         .typed = "1.5 h"},
        {.name = "own-length-unreadable",
         .selection = kRunning,
         .keys = {"Ctrl+Shift+F", "Ctrl+3"},
         .typed = "25:61"},
        {.name = "own-length-offers",
         .selection = kRunning,
         .keys = {"Ctrl+Shift+F", "Ctrl+3", "4", "5", "Return", "Ctrl+Shift+F", "Tab", "Tab",
                  "Tab"}},
        {.name = "home-search", .selection = kRunning, .keys = {"Ctrl+F"}, .typed = "the p"},
        {.name = "home-search-dark",
         .selection = kIdle,
         .keys = {"Ctrl+F"},
         .typed = "the p",
         .palette = Palette::dark},
        {.name = "home-search-right-to-left",
         .keys = {"Ctrl+F"},
         .typed = "the p",
         .direction = Qt::RightToLeft},
        {.name = "home-search-no-matches", .keys = {"Ctrl+F"}, .typed = "swallows"},
        {.name = "home-search-no-matches-dark",
         .keys = {"Ctrl+F"},
         .typed = "swallows",
         .palette = Palette::dark},
        {.name = "home-done", .selection = kIdle, .keys = {"Ctrl+Shift+D", "End", "Return"}},
        {.name = "home-done-right-to-left",
         .selection = kIdle,
         .keys = {"Ctrl+Shift+D", "End"},
         .direction = Qt::RightToLeft},
        {.name = "history-week", .selection = kRunning, .keys = {"Ctrl+H"}},
        {.name = "history-day-dark",
         .keys = {"Ctrl+H", "Home", "Shift+Tab", "Shift+Tab", "Left"},
         .palette = Palette::dark},
        {.name = "history-month-right-to-left",
         .keys = {"Ctrl+H", "Shift+Tab", "Shift+Tab", "Left"},
         .direction = Qt::RightToLeft},
        {.name = "history-bar", .keys = {"Ctrl+H", "Return", "Tab", "Tab", "Tab", "Tab", "Tab"}},
        {.name = "history-smallest", .keys = {"Ctrl+H"}, .size = {640, 420}},
        {.name = "home-menu", .keys = {"Shift+Tab", "Space"}},
        {.name = "home-delete-menu", .keys = {"Down", "Down", "Menu"}},
        {.name = "home-delete-menu-right-to-left",
         .keys = {"Down", "Down", "Menu"},
         .direction = Qt::RightToLeft},
        {.name = "new-home-unselected", .layout = Layout::newHome},
        {.name = "new-home-running", .selection = kRunning, .layout = Layout::newHome},
        {.name = "add-task-empty", .content = Content::addTask, .size = {640, 420}},
        {.name = "add-task-long",
         .content = Content::addTask,
         .typed = kSentences + longWord(),
         .size = {640, 420}},
        {.name = "add-task-dark", .keys = {"Ctrl+N"}, .typed = kIdle, .palette = Palette::dark},
        {.name = "add-task-right-to-left",
         .keys = {"Ctrl+N"},
         .typed = kIdle,
         .direction = Qt::RightToLeft},
        {.name = "share-json", .content = Content::share, .size = {640, 420}},
        {.name = "share-csv",
         .content = Content::share,
         .keys = {"Shift+Tab", "Right"},
         .size = {640, 420}},
        {.name = "share-loading", .content = Content::loadingShare, .size = {640, 420}},
        {.name = "share-dark",
         .content = Content::share,
         .palette = Palette::dark,
         .size = {640, 420}},
        {.name = "about", .menuItem = "About Hearthmark"},
        {.name = "restore", .menuItem = kRestore, .keys = {"Down", "Down"}, .hasBackups = true},
        {.name = "restore-damaged-right-to-left",
         .menuItem = kRestore,
         .keys = {"Down", "Down", "Down"},
         .hasBackups = true,
         .direction = Qt::RightToLeft},
        {.name = "restore-empty", .menuItem = kRestore},
        {.name = "export-path", .menuItem = kExport},
        {.name = "export-path-fault-right-to-left",
         .menuItem = kExport,
         .typed = "/nowhere/x.json\r",
         .direction = Qt::RightToLeft},
        {.name = "export-replace-dark",
         .menuItem = kExport,
         .typed = "/proc/version\r",
         .palette = Palette::dark},
        {.name = "import-path", .menuItem = kImport},
        {.name = "export-writing", .transfer = transfer(Phase::working)},
        {.name = "export-written", .transfer = transfer(Phase::done)},
        {.name = "import-deciding-dark",
         .transfer = transfer(Phase::deciding),
         .palette = Palette::dark},
        {.name = "import-refused-right-to-left",
         .transfer = transfer(Phase::failed),
         .direction = Qt::RightToLeft},
        {.name = "shortcuts", .keys = {"F1"}},
        {.name = "shortcuts-smallest", .keys = {"F1"}, .size = {640, 420}},
        {.name = "shortcuts-right-to-left", .keys = {"F1"}, .direction = Qt::RightToLeft},
        {.name = "interval-new", .selection = kIdle, .keys = {"Ctrl+Shift+I"}},
        {.name = "interval-task-dark",
         .selection = kIdle,
         .keys = {"Ctrl+Shift+I", "Shift+Tab", "Space"},
         .palette = Palette::dark},
        {.name = "interval-fault-right-to-left",
         .selection = kIdle,
         .keys = {"Ctrl+Shift+I"},
         .typed = "x",
         .direction = Qt::RightToLeft},
        {.name = "interval-smallest",
         .selection = kRunning,
         .keys = {"Ctrl+Shift+I"},
         .typed = "x",
         .textSize = 16,
         .size = {640, 420}},
        {.name = "update-checking", .update = update(UpdatePhase::checking)},
        {.name = "update-up-to-date", .update = update(UpdatePhase::upToDate)},
        {.name = "update-available", .update = update(UpdatePhase::available)},
        {.name = "update-downloading", .update = update(UpdatePhase::downloading, 1'650'000)},
        {.name = "update-downloading-right-to-left",
         .update = update(UpdatePhase::downloading, 1'650'000),
         .direction = Qt::RightToLeft},
        {.name = "update-verifying", .update = update(UpdatePhase::verifying)},
        {.name = "update-handing-over", .update = update(UpdatePhase::handingOver)},
        {.name = "update-handed-over",
         .update = update(
             UpdatePhase::handedOver, 0,
             "The package was handed to the system's installer. It lies at " + kPackage + ".",
             kPackage)},
        {.name = "update-failed",
         .update = update(UpdatePhase::failed, 0, "The server did not answer in time.")},
    };
}

// The smallest window, on a desktop with large text.
std::vector<Preview> previewsOfLargeTexts(const std::vector<Preview>& usual) {
    std::vector<Preview> large;
    for (const char* name : {"home-empty",
                             "home-unselected",
                             "home-running",
                             "home-running-right-to-left",
                             "home-many-tasks",
                             "home-long-note",
                             "home-edit-name",
                             "home-edit-note",
                             "home-edit-note-right-to-left",
                             "home-undo",
                             "home-finished",
                             "home-menu",
                             "home-search",
                             "history-week",
                             "history-month-right-to-left",
                             "add-task-long",
                             "add-task-dark",
                             "share-json",
                             "whole-note",
                             "about",
                             "own-length-unreadable",
                             "own-length-offers",
                             "restore",
                             "restore-damaged-right-to-left",
                             "export-replace-dark",
                             "export-written",
                             "import-deciding-dark",
                             "shortcuts",
                             "shortcuts-right-to-left",
                             "update-available",
                             "update-failed"}) {
        Preview& preview = large.emplace_back(*std::ranges::find(usual, name, &Preview::name));
        preview.name += "-large";
        preview.size = {640, 420};
        preview.textSize = 16;
    }
    return large;
}

}  // namespace

const std::vector<Preview>& allPreviews() {
    static const std::vector<Preview> kPreviews = [] {
        std::vector<Preview> previews = previewsOfUsualTexts();
        std::ranges::copy(previewsOfLargeTexts(previews), std::back_inserter(previews));
        return previews;
    }();
    return kPreviews;
}

const Preview* previewNamed(const std::string& name) {
    const auto found = std::ranges::find(allPreviews(), name, &Preview::name);
    return found != allPreviews().end() ? &*found : nullptr;
}

}  // namespace hearthmark::previews
