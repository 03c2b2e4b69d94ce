// SPDX-License-Identifier: MIT
import QtQuick

// A list that shows another model from time to time. The toolkit's keeps a connection for each model
// that follows another of its kind; a model of another kind ends them, but takes the delegate along.
ListView {
    id: root

    function scrollBy(distance: real) {
        const bottom = root.originY + root.contentHeight + root.bottomMargin - root.height;
        root.contentY = Math.max(root.originY - root.topMargin, Math.min(root.contentY + distance, bottom));
    }

    function changeModel(rows: QtObject, rowDelegate: Component) {
        root.model = nothing;
        root.model = rows;
        root.delegate = rowDelegate;
    }

    ObjectModel {
        id: nothing
    }
}
