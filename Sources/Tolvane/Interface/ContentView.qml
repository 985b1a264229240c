import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The screen of the size map.
Item {
    id: view

    required property ScanViewModel controller
    readonly property bool isResult: controller.stage === Ui.Result
    readonly property bool isSheetOpen: review.opened || failures.opened || purgeable.opened

    function focusContent(): void {
        if (isResult) {
            result.focusItems();
        }
    }

    Connections {
        target: view.controller

        function onStageChanged(): void {
            view.focusContent();
        }
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        ContentToolbar {
            id: toolbar

            Layout.fillWidth: true
            controller: view.controller
            onFilterLeft: view.focusContent()
        }
        ContentBanners {
            Layout.fillWidth: true
            controller: view.controller
        }
        StackLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            currentIndex: view.controller.stage

            StartPage {
                controller: view.controller
            }
            WorkingPage {
                controller: view.controller
            }
            ResultPage {
                id: result

                controller: view.controller
            }
        }
    }

    DropArea {
        id: drop

        anchors.fill: parent
        keys: ["text/uri-list"]
        onDropped: event => {
            view.controller.scanDropped(event.urls);
            event.accept(Qt.CopyAction);
        }

        Rectangle {
            anchors.fill: parent
            anchors.margins: Theme.spacing
            visible: drop.containsDrag
            radius: Theme.cardRadius
            color: Theme.accentSoft
            opacity: 0.92
            border.width: 2
            border.color: Theme.accent

            PlainLabel {
                anchors.centerIn: parent
                text: qsTr("Drop a folder to see what fills it")
                font.pixelSize: Theme.titleText
            }
        }
    }

    ReviewSheet {
        id: review

        controller: view.controller
    }
    FailureSheet {
        id: failures

        controller: view.controller
    }
    PurgeableSheet {
        id: purgeable

        controller: view.controller
    }

    ContentShortcuts {
        controller: view.controller
        isActive: view.visible && !view.isSheetOpen
        onFilterRequested: toolbar.focusFilter()
    }
}
