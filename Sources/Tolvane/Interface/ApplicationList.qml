import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// What is installed, and a search in it.
Item {
    id: view

    required property UninstallerViewModel controller

    function focusFilter(): void {
        filter.take();
    }

    function showSelected(): void {
        table.currentIndex = controller.selectedRow();
    }

    Connections {
        target: view.controller

        function onRowsUpdated(): void {
            view.showSelected();
        }
    }
    // An identifier may be empty, too.
    Connections {
        target: view.controller.detail

        function onAppIDChanged(): void {
            view.showSelected();
        }
        function onHasAppChanged(): void {
            view.showSelected();
        }
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.pageMargin
        spacing: Theme.spacing

        ScreenFilter {
            id: filter

            Layout.maximumWidth: -1
            placeholderText: qsTr("Search applications")
            filterText: view.controller.query
            onWanted: text => view.controller.setQuery(text)
            onDone: table.forceActiveFocus(Qt.OtherFocusReason)
        }
        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            DataTable {
                id: table

                objectName: "applicationRows"
                anchors.fill: parent
                visible: count > 0
                model: view.controller.rows
                rowHeight: 52
                rowDelegate: ApplicationRow {}
                accessibleName: qsTr("Applications")
                onCurrentIndexChanged: if (currentIndex >= 0) view.controller.select(view.controller.idAt(currentIndex))
                onRowActivated: view.controller.prepareReview()
                onContextMenuRequested: (row, x, y) => menu.openFor(view.controller.idAt(row), table, x, y)
                Keys.onDeletePressed: view.controller.prepareReview()
            }
            PlainLabel {
                objectName: "emptyText"
                anchors.fill: parent
                anchors.margins: Theme.spacing
                // Beside no application there is room to say more.
                visible: !table.visible && view.controller.detail.hasApp
                text: view.controller.emptyText
                color: Theme.secondaryText
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
        }
        FooterLink {
            objectName: "showFailures"
            Layout.leftMargin: -Theme.spacing
            visible: text !== ""
            iconName: "dialog-warning"
            ink: Theme.warningText
            text: view.controller.failuresText
            onClicked: view.controller.openFailures()
        }
        PlainLabel {
            objectName: "leftOutText"
            Layout.fillWidth: true
            Layout.bottomMargin: Theme.wideSpacing
            text: view.controller.leftOutText
            color: Theme.secondaryText
            font.pixelSize: Theme.smallText
            wrapMode: Text.Wrap
        }
    }
    ApplicationMenu {
        id: menu

        controller: view.controller
    }
}
