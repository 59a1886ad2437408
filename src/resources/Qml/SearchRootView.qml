// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQuick 2.0
import QtQuick.Controls 1.2
import com.kestrum.halvoraint 1.0
import com.kestrum.translations 1.0
import "Elements"

SearchRootView {
    id: navView

    property alias filters: filterPanel.model

    signal requireKeyboard(TextField textF)
    signal dismissKeyboard()

    function filter() {
        return filterPanel.selectedUri === "all" ? "" : filterPanel.selectedUri
    }

    onRowTypesChanged: rows.load()
    onNeedRefresh: rows.refreshItems()

    DynamicTranslator {
        id: translator
    }

    LibraryList {
        id: rows

        anchors { fill: parent; topMargin: 88 }
        navView: navView
        heading: Item {
            width: rows.width
            height: 44

            PlainLabel {
                anchors { fill: parent; leftMargin: 15; rightMargin: 120 }
                text: translator.translate(section)
                font.pixelSize: 12
                font.capitalization: Font.AllUppercase
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
            }

            FeedbackButton {
                anchors { verticalCenter: parent.verticalCenter; right: parent.right; rightMargin: 10 }
                width: 100
                height: 30
                text: "Show more..."
                textSize: 12
                onClicked: navView.showSectionDetails(section)
            }
        }
    }

    SearchBar {
        id: bar

        anchors { top: parent.top; left: parent.left; right: parent.right }
        onSearch: navView.search(text, navView.filter())
        onFiltersRequested: filterPanel.slideIn()
        onRequireKeyboard: navView.requireKeyboard(textF)
        onDismissKeyboard: navView.dismissKeyboard()
    }

    FilterPanel {
        id: filterPanel

        translator: translator
        onSelected: bar.filterTitle = title
    }
}
