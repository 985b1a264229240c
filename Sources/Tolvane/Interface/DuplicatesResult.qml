import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The groups that were found, or why there are none, and the totals.
Item {
    id: page

    required property DuplicatesViewModel controller
    readonly property bool isFilteredAway: controller.hasGroups && controller.rows.count === 0

    function focusRows(): void {
        list.focusRows();
    }

    Keys.onPressed: event => {
        if (event.key === Qt.Key_Delete) {
            controller.prepareReview();
        } else if (event.matches(StandardKey.SelectAll)) {
            controller.selectAllCopies();
        } else {
            return;
        }
        event.accepted = true;
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        // Anchors: a layout does not notice what comes to be seen while it is not itself.
        Item {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.pageMargin
            Layout.rightMargin: Theme.pageMargin
            Layout.bottomMargin: Theme.spacing
            implicitHeight: Theme.controlHeight

            ElidedLabel {
                objectName: "summaryText"
                anchors.left: parent.left
                anchors.right: actions.left
                anchors.rightMargin: Theme.wideSpacing
                height: parent.height
                text: page.controller.rows.countsText === "" ? page.controller.summaryText : page.controller.rows.countsText
                font.weight: Font.Medium
            }
            Row {
                id: actions

                anchors.right: parent.right
                spacing: Theme.spacing

                MinimumSizeField {
                    controller: page.controller
                    hasLabel: page.width >= 760
                    onConfirmed: page.controller.scan()
                }
                PlainButton {
                    objectName: "selectAllCopies"
                    visible: page.controller.hasGroups
                    iconName: "object-select"
                    text: qsTr("Select all copies")
                    onClicked: page.controller.selectAllCopies()
                }
                IconButton {
                    id: more

                    objectName: "keepMore"
                    visible: page.controller.hasGroups
                    iconName: "view-more"
                    text: qsTr("Other ways to choose")
                    onClicked: menu.popup(more, more.width - menu.width, more.height + 2)
                }
            }
            DuplicatesKeepMenu {
                id: menu

                controller: page.controller
            }
        }
        StackLayout {
            currentIndex: !page.controller.hasGroups ? 2 : page.isFilteredAway ? 1 : 0

            DuplicatesList {
                id: list

                controller: page.controller
            }
            EmptyState {
                objectName: "filteredAway"
                iconName: "edit-find"
                title: qsTr("No duplicate has such a name")
                text: qsTr("No path among the duplicates holds \"%1\".").arg(page.controller.rows.filter)
                actionText: qsTr("Show all groups")
                onActionTriggered: page.controller.rows.setFilter("")
            }
            EmptyState {
                objectName: "nothingFound"
                iconName: page.controller.isPartial ? "edit-find" : "emblem-ok"
                title: page.controller.isPartial ? qsTr("Nothing found so far") : qsTr("No duplicates here")
                text: page.controller.emptyText
                actionText: qsTr("Choose another folder...")
                note: page.controller.leftOutText
                onActionTriggered: page.controller.chooseRoot()
            }
        }
        DuplicatesFooter {
            Layout.fillWidth: true
            controller: page.controller
        }
    }
}
