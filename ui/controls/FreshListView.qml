// SPDX-License-Identifier: MIT
import QtQuick

// A list that shows another model from time to time. The toolkit's keeps a connection for each model
// that follows another of its kind; a model of another kind ends them, but takes the delegate along.
ListView {
    id: root

    function changeModel(rows: QtObject, rowDelegate: Component) {
        root.model = nothing;
        root.model = rows;
        root.delegate = rowDelegate;
    }

    ObjectModel {
        id: nothing
    }
}
