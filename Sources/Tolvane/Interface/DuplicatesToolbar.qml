import QtQuick
import Tolvane
import Tolvane.Components

/// Which folder the duplicates are looked for in, and what can be done.
ScreenToolbar {
    id: toolbar

    required property DuplicatesViewModel controller
    readonly property bool isResult: controller.stage === Ui.Result

    signal filterLeft()

    function focusFilter(): void {
        filter.take();
    }

    title: qsTr("Duplicates")
    path: controller.stage === Ui.Start ? "" : controller.rootPath

    ScreenFilter {
        id: filter

        visible: toolbar.controller.hasGroups
        filterText: toolbar.controller.rows.filter
        onWanted: text => toolbar.controller.rows.setFilter(text)
        onDone: toolbar.filterLeft()
    }
    IconButton {
        objectName: "scanAgain"
        visible: toolbar.isResult
        enabled: !toolbar.controller.isWorking
        iconName: "view-refresh"
        text: qsTr("Scan again")
        shortcutText: "Ctrl+R"
        onClicked: toolbar.controller.scan()
    }
    PlainButton {
        objectName: "chooseFolder"
        visible: toolbar.controller.stage !== Ui.Working
        enabled: !toolbar.controller.isWorking
        iconName: "document-open-folder"
        text: qsTr("Choose folder...")
        onClicked: toolbar.controller.chooseRoot()
    }
}
