// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QString>
#include <optional>
#include <vector>

#include "base/uuid.h"
#include "livedata/block.h"
#include "presentation/notes_view_state.h"
#include "presentation/task_detail_view_state.h"
#include "ui/rows/row_list_model.h"

namespace hearthmark::ui {

// A line of the detail pane: an interval that does not run, the place of the notes section, or a
// note.
struct TaskDetailRow {
    static const std::vector<RowRole<TaskDetailRow>>& roles();

    // Its kind is one of TaskDetailListModel::Kind.
    RowKey key;
    // Of a long note its beginning.
    QString text;
    QString wholeText;
    bool isCut = false;
    // An editor lies over it.
    bool isEdited = false;
    // Absent for the place of the notes section.
    livedata::Action onDelete;
};

// What the detail pane scrolls through below its header, in one flat model, so that the view makes
// delegates only for what is visible.
class TaskDetailListModel : public HEARTHMARK_ROW_LIST_MODEL(TaskDetailRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the task detail adapter")
    Q_PROPERTY(int notesRow READ notesRow NOTIFY shown FINAL)
    Q_PROPERTY(int editedRow READ editedRow NOTIFY shown FINAL)

 public:
    enum Kind { Interval, NotesSection, Note };
    Q_ENUM(Kind)

    // With the place of the notes section alone.
    explicit TaskDetailListModel(QObject* parent = nullptr);

    // Each leaves what the other has shown.
    void showIntervals(
        const livedata::SharedList<presentation::TaskDetailViewState::NonRunningInterval>&
            intervals);
    void showNotes(const livedata::SharedList<presentation::NotesViewState::CommittedNote>& notes);

    // No more than one note.
    void showEdited(const std::optional<base::Uuid>& noteId);

    Q_INVOKABLE void deleteRow(int row) const;
    // To the clipboard.
    Q_INVOKABLE void copyRow(int row) const;

    // Of a note.
    QString wholeText(int row) const;
    // Absent where the row is none.
    std::optional<base::Uuid> noteId(int row) const;
    // -1 where none is.
    int editedRow() const;

    // The row of the notes section; the notes come after it.
    int notesRow() const;

    // For the keyboard, which steps over the notes section: the next row in a direction, or `row`
    // where there is none; the row nearest to that of the section, before it if possible.
    Q_INVOKABLE int rowBefore(int row) const { return stepped(row, -1); }
    Q_INVOKABLE int rowAfter(int row) const { return stepped(row, 1); }
    Q_INVOKABLE int rowNearest(int section) const {
        return section > 0 ? section - 1 : section + 1;
    }

 signals:
    // Other intervals or notes than before, or another one is edited.
    void shown();

 private:
    void makeNotes();
    int stepped(int row, int step) const;

    livedata::SharedList<presentation::TaskDetailViewState::NonRunningInterval> shownIntervals_;
    livedata::SharedList<presentation::NotesViewState::CommittedNote> shownNotes_;
    std::optional<base::Uuid> edited_;
};

}  // namespace hearthmark::ui
