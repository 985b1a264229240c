import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// What the screen is, what it works on, and what can be done.
Item {
    id: toolbar

    required property ScanViewModel controller
    readonly property bool isResult: controller.stage === Ui.Result

    signal filterLeft()

    function focusFilter(): void {
        filter.forceActiveFocus(Qt.ShortcutFocusReason);
        filter.selectAll();
    }

    implicitHeight: Theme.toolbarHeight + Theme.spacing

    Connections {
        target: toolbar.controller.folder

        function onFilterChanged(): void {
            filter.text = toolbar.controller.folder.filter;
        }
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.pageMargin
        anchors.rightMargin: Theme.pageMargin
        spacing: Theme.spacing

        ColumnLayout {
            Layout.minimumWidth: title.implicitWidth
            Layout.preferredWidth: 1000
            spacing: 0

            PlainLabel {
                id: title

                Layout.fillWidth: true
                text: qsTr("Space Analysis")
                font.pixelSize: Theme.titleText
                font.weight: Font.DemiBold
                Accessible.role: Accessible.Heading
            }
            ElidedLabel {
                objectName: "scannedPath"
                Layout.fillWidth: true
                visible: text !== ""
                text: toolbar.controller.scannedPath
                color: Theme.secondaryText
                font.pixelSize: Theme.smallText
                elide: Text.ElideMiddle
            }
        }
        FilterField {
            id: filter

            objectName: "filter"
            Layout.fillWidth: true
            Layout.minimumWidth: 96
            Layout.maximumWidth: 200
            visible: toolbar.isResult
            placeholderText: qsTr("Filter")
            onTextChanged: toolbar.controller.folder.setFilter(text)
            Keys.onReturnPressed: toolbar.filterLeft()
            Keys.onDownPressed: toolbar.filterLeft()
        }
        SegmentedSwitch {
            objectName: "presentation"
            visible: toolbar.isResult
            segments: [
                { icon: "view-grid", text: qsTr("Tiles"), view: "grid" },
                { icon: "view-list", text: qsTr("List"), view: "list" }
            ]
            currentIndex: toolbar.controller.spaceAnalysisView === "list" ? 1 : 0
            onActivated: index => toolbar.controller.setSpaceAnalysisView(segments[index].view)
        }
        IconButton {
            objectName: "scanAgain"
            visible: toolbar.isResult
            iconName: "view-refresh"
            text: qsTr("Scan again")
            shortcutText: "Ctrl+R"
            onClicked: toolbar.controller.scanAgain()
        }
        PlainButton {
            objectName: "chooseFolder"
            visible: toolbar.isResult
            iconName: "document-open-folder"
            text: qsTr("Choose folder...")
            onClicked: toolbar.controller.chooseFolder()
        }
    }
}
