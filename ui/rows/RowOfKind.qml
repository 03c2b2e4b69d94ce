// SPDX-License-Identifier: MIT
import QtQuick

// A row that shows one of several things. The toolkit's Loader makes no bound component before 6.5, and
// would be one item more for each row.
DeletableRow {
    id: root

    required property Component shownKind
    property Item content
    // Before, the row need not have its width, and what is laid out without one has no height either.
    property bool isComplete: false

    // Whatever has the focus in what goes loses it at once.
    function showKind() {
        if (!root.isComplete)
            return;
        if (root.content) {
            root.content.parent = null;
            root.content.destroy();
        }
        root.content = root.shownKind?.createObject(root) as Item;
    }

    onShownKindChanged: root.showKind()
    onIsCompleteChanged: root.showKind()
    Component.onCompleted: root.isComplete = true
}
