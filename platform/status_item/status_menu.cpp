// SPDX-License-Identifier: MIT
#include "platform/status_item/status_menu.h"

#include <algorithm>
#include <utility>

#include "platform/status_item/status_icon.h"

namespace hearthmark::platform {

namespace {

// Most panels make a menu as wide as its longest line.
constexpr int kLongestTaskName = 40;

QString textOf(const services::StatusMenuEntry& entry) {
    const QString text = QString::fromStdString(entry.text);
    const QString name =
        shortened(QString::fromStdString(entry.taskName).simplified(), kLongestTaskName);
    return name.isEmpty() ? text : StatusMenu::tr("%1 – %2").arg(text, name);
}

}  // namespace

StatusMenu::StatusMenu(Actions actions) : actions_(std::move(actions)) {
    renew();
}

void StatusMenu::setTitle(const QString& text) {
    title_ = text;
    lines_.front().text = text;
}

bool StatusMenu::setCanCheckForUpdates(bool canCheckForUpdates) {
    const bool isNew = std::exchange(canCheckForUpdates_, canCheckForUpdates) != canCheckForUpdates;
    std::ranges::find(lines_, updates, &Line::id)->isEnabled = canCheckForUpdates;
    return isNew;
}

void StatusMenu::setEntries(Entries entries) {
    entries_ = std::move(entries);
    areCurrent_ = false;
}

const std::vector<StatusMenu::Line>& StatusMenu::lines() {
    if (!areCurrent_) {
        renew();
    }
    return lines_;
}

const StatusMenu::Line* StatusMenu::line(int id) const {
    const auto found = std::ranges::find(lines_, id, &Line::id);
    return found != lines_.end() ? &*found : nullptr;
}

bool StatusMenu::isKnown(int id) const {
    return (id >= root && id <= quit) || (id >= kFirstEntry && id < nextId_);
}

void StatusMenu::renew() {
    const auto separator = [](int id) { return Line{.id = id, .text = {}, .choose = {}}; };
    lines_ = {{.id = title, .text = title_, .choose = {}}, separator(titleSeparator)};
    std::map<std::string, int> ids;
    for (services::StatusMenuEntry& entry :
         entries_ ? entries_() : std::vector<services::StatusMenuEntry>()) {
        const auto known = ids_.find(entry.key);
        const int id = known != ids_.end() ? known->second : nextId_++;
        lines_.push_back({.id = id,
                          .text = textOf(entry),
                          .isEnabled = true,
                          .choose = std::move(entry.choose)});
        ids.emplace(std::move(entry.key), id);
    }
    ids_ = std::move(ids);
    const auto add = [this](int id, const QString& text, const std::function<void()>& choose) {
        lines_.push_back({.id = id, .text = text, .isEnabled = true, .choose = choose});
    };
    add(addTask, tr("Add Task…"), actions_.addTask);
    lines_.push_back(separator(showSeparator));
    add(show, tr("Show Hearthmark"), actions_.show);
    add(updates, tr("Check for Updates…"), actions_.checkForUpdates);
    lines_.back().isEnabled = canCheckForUpdates_;
    lines_.push_back(separator(quitSeparator));
    add(quit, tr("Quit"), actions_.quit);
    areCurrent_ = true;
}

}  // namespace hearthmark::platform
