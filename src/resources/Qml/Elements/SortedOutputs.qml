// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import QtQml.Models 2.2

// Outputs that keep themselves sorted: each new item lands in "unsorted" and is placed among the others from there.
DelegateModel {
    id: root

    property int sortOrder: 0
    property var view: null

    // By the output's number, and by that of its source; outputs without a source compare with nothing.
    readonly property var sortFunctions: [
        function (left, right) { return left.index < right.index },
        function (left, right) { return sourceIndex(left) < sourceIndex(right) }
    ]

    function sourceIndex(output) {
        return output.selectedSource ? output.selectedSource.index : undefined
    }

    function outputAt(group, position) {
        return group.get(position).model.modelData
    }

    // Equal keys go behind those that are there.
    function placeFor(output) {
        var lower = 0
        var upper = items.count
        while (lower < upper) {
            var middle = Math.floor(lower + (upper - lower) / 2)
            if (sortFunctions[sortOrder](output, outputAt(items, middle)))
                upper = middle
            else
                lower = middle + 1
        }
        return lower
    }

    function placeAll() {
        while (unsorted.count > 0) {
            var item = unsorted.get(0)
            var place = placeFor(item.model.modelData)
            item.groups = "items"
            items.move(item.itemsIndex, place)
        }
    }

    onSortOrderChanged: {
        // The view crashes when its sections change between a change of its rows and its next layout. Setting the
        // current index lays out what has changed so far, whatever the index.
        view.currentIndex = view.currentIndex
        view.section.property = sortOrder === 1 ? "selectedSource.index" : ""
        if (items.count > 0)
            items.setGroups(0, items.count, "unsorted")
    }

    items.includeByDefault: false
    groups: DelegateModelGroup {
        id: unsorted

        name: "unsorted"
        includeByDefault: true
        onChanged: {
            if (root.sortOrder === root.sortFunctions.length)
                setGroups(0, count, "items")
            else
                root.placeAll()
        }
    }
}
