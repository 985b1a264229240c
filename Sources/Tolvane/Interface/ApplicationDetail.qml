import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The chosen application: its bundle, what it leaves, and its removal.
Rectangle {
    id: panel

    required property UninstallerViewModel controller
    readonly property AppDetail detail: controller.detail

    radius: Theme.cardRadius
    color: Theme.surface
    border.color: Theme.line
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Application")

    EmptyState {
        objectName: "nothingFound"
        anchors.fill: parent
        visible: !panel.detail.hasApp && panel.controller.emptyText !== ""
        iconName: "edit-find"
        title: panel.controller.emptyText
        text: panel.controller.query === "" ? panel.controller.lookedInText : qsTr("No name or identifier holds \"%1\".").arg(panel.controller.query)
        actionText: panel.controller.query === "" ? "" : qsTr("Show all applications")
        onActionTriggered: panel.controller.setQuery("")
    }
    EmptyState {
        objectName: "noApplication"
        anchors.fill: parent
        visible: !panel.detail.hasApp && panel.controller.emptyText === ""
        iconName: "applications"
        title: qsTr("Choose an application")
        text: qsTr("Here you see what it takes and what it leaves in other folders, before anything is removed.")
    }
    ColumnLayout {
        anchors.fill: parent
        anchors.topMargin: Theme.wideSpacing
        visible: panel.detail.hasApp
        spacing: Theme.spacing

        ApplicationHeader {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.wideSpacing
            Layout.rightMargin: Theme.wideSpacing
            controller: panel.controller
        }
        Rectangle {
            Layout.fillWidth: true
            Layout.topMargin: Theme.spacing
            implicitHeight: 1
            color: Theme.line
        }
        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            DataTable {
                id: table

                objectName: "leftoverRows"
                anchors.fill: parent
                visible: count > 0
                model: panel.detail.leftovers
                rowHeight: 52
                rowDelegate: LeftoverRow {}
                sectionRole: "groupText"
                accessibleName: qsTr("Leftovers")
                onRowActivated: row => panel.controller.revealLeftover(row)
                onContextMenuRequested: (row, x, y) => menu.openFor(row, table, x, y)
                Keys.onDeletePressed: panel.controller.prepareReview()
            }
            FractionBar {
                anchors.centerIn: parent
                width: Math.min(240, parent.width - 2 * Theme.pageMargin)
                visible: panel.detail.isLoading
                fraction: -1
            }
            PlainLabel {
                objectName: "noLeftovers"
                anchors.centerIn: parent
                width: Math.min(360, parent.width - 2 * Theme.pageMargin)
                visible: text !== ""
                text: panel.detail.emptyText
                color: Theme.secondaryText
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
        }
        Rectangle {
            Layout.fillWidth: true
            implicitHeight: 1
            color: Theme.line
        }
        RowLayout {
            Layout.leftMargin: Theme.wideSpacing
            Layout.rightMargin: Theme.wideSpacing
            Layout.bottomMargin: Theme.spacing
            spacing: Theme.wideSpacing

            ColumnLayout {
                spacing: 0

                ElidedLabel {
                    objectName: "removableText"
                    Layout.fillWidth: true
                    text: panel.detail.removableText
                }
                ElidedLabel {
                    objectName: "protectedText"
                    Layout.fillWidth: true
                    visible: text !== ""
                    text: panel.detail.protectedText
                    color: Theme.secondaryText
                    font.pixelSize: Theme.smallText
                }
            }
            DestructiveButton {
                objectName: "uninstall"
                enabled: panel.detail.removableText !== "" && !panel.controller.isWorking
                iconName: "user-trash"
                text: qsTr("Uninstall...")
                onClicked: panel.controller.prepareReview()
            }
        }
    }
    LeftoverMenu {
        id: menu

        controller: panel.controller
    }
}
