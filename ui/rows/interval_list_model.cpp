// SPDX-License-Identifier: MIT
#include "ui/rows/interval_list_model.h"

#include "ui/state/run_action.h"

namespace hearthmark::ui {

const std::vector<RowRole<IntervalRow>>& IntervalRow::roles() {
    static const std::vector kRoles{
        role<&IntervalRow::timeSpent>("timeSpent"), role<&IntervalRow::button>("button"),
        role<&IntervalRow::progress>("progress"), role<&IntervalRow::began>("began"),
        role<&IntervalRow::extension>("extension")};
    return kRoles;
}

void IntervalListModel::tapButton(int row) const {
    if (const IntervalRow* tapped = rowAt(row)) {
        run(tapped->onButtonTap);
    }
}

void IntervalListModel::deleteRow(int row) const {
    if (const IntervalRow* deleted = rowAt(row)) {
        run(deleted->onDelete);
    }
}

void IntervalListModel::extendRow(int row) const {
    if (const IntervalRow* extended = rowAt(row)) {
        run(extended->onExtend);
    }
}

}  // namespace hearthmark::ui
