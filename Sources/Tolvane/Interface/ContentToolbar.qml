import QtQuick
import Tolvane
import Tolvane.Components

/// What the size map works on, and what can be done.
ScreenToolbar {
    id: toolbar

    required property ScanViewModel controller
    readonly property bool isResult: controller.stage === Ui.Result

    signal filterLeft()

    function focusFilter(): void {
        filter.take();
    }

    title: qsTr("Space Analysis")
    path: controller.scannedPath

    ScreenFilter {
        id: filter

        visible: toolbar.isResult
        filterText: toolbar.controller.folder.filter
        onWanted: text => toolbar.controller.folder.setFilter(text)
        onDone: toolbar.filterLeft()
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
