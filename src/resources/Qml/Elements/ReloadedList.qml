// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import QtQml.Models 2.2

// A list that gets new rows over and over and costs no more for it: a queue is polled for months. A ListView that makes
// its model itself is connected to it once more by Qt 5.15 with all that it is to show, and keeps every connection. So
// the rows have a model of their own here, which goes with them.
ListView {
    id: root

    property var rows: [] // each assignment loads the list anew
    property Component row: null

    onRowsChanged: {
        var former = model
        model = maker.createObject(root, { model: rows })
        if (former)
            former.destroy()
    }

    Component {
        id: maker

        DelegateModel {
            delegate: root.row
        }
    }
}
