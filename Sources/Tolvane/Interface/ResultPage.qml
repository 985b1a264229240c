import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The folder on screen, its items, one of them in detail, and the totals.
Item {
    id: page

    required property ScanViewModel controller
    readonly property bool isList: controller.spaceAnalysisView === "list"
    readonly property bool hasRoomForInspector: width >= 760

    /// The keyboard is theirs once it is this screen's.
    function focusItems(): void {
        if (isList) {
            list.focusItems();
        } else {
            grid.focusItems();
        }
    }

    Keys.onPressed: event => {
        if (event.key === Qt.Key_Delete) {
            controller.reviewChosen();
        } else if (event.key === Qt.Key_Backspace) {
            controller.goBack();
        } else if (event.matches(StandardKey.SelectAll)) {
            controller.selectAllChildren();
        } else {
            return;
        }
        event.accepted = true;
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        RowLayout {
            Layout.fillHeight: false
            Layout.leftMargin: Theme.pageMargin - Theme.spacing
            Layout.rightMargin: Theme.pageMargin
            Layout.bottomMargin: Theme.spacing
            spacing: Theme.halfSpacing

            IconButton {
                objectName: "goBack"
                enabled: page.controller.canGoBack
                iconName: "go-previous"
                text: qsTr("Back")
                shortcutText: "Alt+Left"
                onClicked: page.controller.goBack()
            }
            PathBar {
                objectName: "crumbs"
                Layout.fillWidth: true
                model: page.controller.crumbs
                onActivated: index => page.controller.jump(index)
            }
        }
        // Anchors: a layout does not notice when it gets room for the inspector.
        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.leftMargin: Theme.pageMargin
            Layout.rightMargin: Theme.pageMargin

            ColumnLayout {
                anchors.left: parent.left
                anchors.right: inspector.left
                anchors.rightMargin: page.hasRoomForInspector ? Theme.wideSpacing : 0
                height: parent.height
                spacing: Theme.spacing

                StackLayout {
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    currentIndex: page.controller.folder.count === 0 ? 2 : page.isList ? 1 : 0

                    FolderGrid {
                        id: grid

                        controller: page.controller
                        isShown: !page.isList
                    }
                    FolderList {
                        id: list

                        controller: page.controller
                        isShown: page.isList
                    }
                    NothingHere {
                        controller: page.controller
                    }
                }
                HiddenItems {
                    Layout.fillWidth: true
                    controller: page.controller
                }
            }
            InspectorPanel {
                id: inspector

                anchors.right: parent.right
                width: page.hasRoomForInspector ? implicitWidth : 0
                height: parent.height
                visible: page.hasRoomForInspector
                controller: page.controller
            }
        }
        ContentFooter {
            Layout.fillWidth: true
            controller: page.controller
        }
    }
}
