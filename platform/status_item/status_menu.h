// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "services/ports/status_bar.h"

namespace hearthmark::platform {

// The lines of the status item's menu, whoever shows them. Main thread.
class StatusMenu {
    Q_DECLARE_TR_FUNCTIONS(StatusMenu)

 public:
    // Called from the event loop, when the panel has its answer.
    struct Actions {
        std::function<void()> addTask;
        std::function<void()> show;
        std::function<void()> checkForUpdates;
        std::function<void()> quit;
    };
    using Entries = std::function<std::vector<services::StatusMenuEntry>()>;

    // The numbers of what is always there; those of the entries are higher.
    enum Id {
        root,
        title,
        titleSeparator,
        addTask,
        showSeparator,
        show,
        updates,
        quitSeparator,
        quit,
    };
    struct Line {
        int id = 0;
        // A line without one separates those around it.
        std::optional<QString> text;
        bool isEnabled = false;
        std::function<void()> choose;
    };

    explicit StatusMenu(Actions actions);

    // The first line, which does nothing when it is chosen.
    void setTitle(const QString& text);
    // Whether it could not before.
    bool setCanCheckForUpdates(bool canCheckForUpdates);
    // What stands below the title, asked for with the next look at the lines.
    void setEntries(Entries entries);
    void entriesChanged() { areCurrent_ = false; }

    // All, as they are now. Valid until the next call.
    const std::vector<Line>& lines();
    // As it was when lines() was last called: what is chosen was seen then. Null for the root, and
    // for what was not there.
    const Line* line(int id) const;
    // Whether it is there or has been.
    bool isKnown(int id) const;

 private:
    static constexpr int kFirstEntry = 100;

    void renew();

    Actions actions_;
    Entries entries_;
    QString title_;
    bool canCheckForUpdates_ = false;
    std::vector<Line> lines_;
    bool areCurrent_ = false;
    // Of the entries that are there, by their keys. No number is used again for another.
    std::map<std::string, int> ids_;
    int nextId_ = kFirstEntry;
};

}  // namespace hearthmark::platform
