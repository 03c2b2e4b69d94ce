// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <string>
#include <vector>

#include "export/file_transfer_view_model.h"
#include "services/ports/updater.h"

namespace hearthmark::previews {

// What a preview shows: the whole window over a store, and from addTask on a part of it over a
// fake.
enum class Content {
    demoTasks,
    noTasks,
    longTexts,
    longNote,
    manyTasks,
    addTask,
    share,
    loadingShare,
    loadingTasks
};

// HomeView, or NewHomeView, which the program does not use.
enum class Layout { home, newHome };

enum class Palette { light, dark };

// One picture: what is in the window, what is then done in it, and how it is drawn.
struct Preview {
    std::string name;
    Content content = Content::demoTasks;
    // The name of the task that is clicked on; empty for none.
    QString selection{};
    // Opened in the application menu; empty for none.
    QString menuItem{};
    // Pressed one after another, and what is typed then.
    QStringList keys{};
    QString typed{};
    // How far a file and an update are, and the tasks whose finish the desktop did not show.
    exporting::FileTransferViewState transfer{};
    services::UpdateState update{};
    std::vector<std::string> unseenFinishes{};
    bool hasBackups = false;
    Layout layout = Layout::home;
    Palette palette = Palette::light;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    // Of one of the screens in screens.json.
    qreal scale = 1;
    // Of the desktop, in points.
    int textSize = 10;
    QSize size{900, 620};
};

// All there are, each under a name of its own.
const std::vector<Preview>& allPreviews();

// Null where none has the name.
const Preview* previewNamed(const std::string& name);

// The name of a task with a note that is too long to be shown in its pane.
inline constexpr auto kLongNote = "Reading list";

// Without a blank, so that nothing can be wrapped or cut at a word.
QString longWord();

}  // namespace hearthmark::previews
