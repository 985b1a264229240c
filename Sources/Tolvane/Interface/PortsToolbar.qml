import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// Which listeners are shown, and what can be done to all of them.
ScreenToolbar {
    id: toolbar

    required property PortsViewModel controller

    signal filterLeft()

    function focusFilter(): void {
        filter.take();
    }

    title: qsTr("Ports")
    path: qsTr("Processes that listen on TCP ports of this machine")

    ScreenFilter {
        id: filter

        Layout.minimumWidth: toolbar.width > 720 ? 280 : 96
        Layout.preferredWidth: 2000
        Layout.maximumWidth: 320
        placeholderText: qsTr("Filter port, process, PID, or path")
        filterText: toolbar.controller.query
        onWanted: text => toolbar.controller.setQuery(text)
        onDone: toolbar.filterLeft()
    }
    IconButton {
        objectName: "refresh"
        enabled: !toolbar.controller.isScanning
        iconName: "view-refresh"
        text: qsTr("Refresh")
        shortcutText: "Ctrl+R"
        onClicked: toolbar.controller.refresh()
    }
    PlainButton {
        objectName: "killAll"
        enabled: toolbar.controller.hasListeners && !toolbar.controller.isSignalling
        iconName: "process-stop"
        text: qsTr("Kill all...")
        onClicked: toolbar.controller.askToKillAll()
    }
}
