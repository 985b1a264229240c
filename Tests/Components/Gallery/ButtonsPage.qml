import QtQuick
import Tolvane.Components

Ground {
    Row {
        spacing: 8
        PrimaryButton { text: "Choose folder…" }
        PrimaryButton { text: "Scan"; iconName: "edit-find" }
        PlainButton { text: "Cancel" }
        PlainButton { text: "Reveal"; iconName: "document-open-folder" }
        PlainButton { iconName: "view-refresh"; Accessible.name: "Refresh" }
        DestructiveButton { text: "Move to Trash" }
    }
    Row {
        spacing: 8
        PrimaryButton { text: "Disabled"; enabled: false }
        PlainButton { text: "Disabled"; enabled: false; iconName: "edit-undo" }
        DestructiveButton { text: "Disabled"; enabled: false }
        PlainButton {
            text: "Focused"
            Timer { running: true; interval: 50; onTriggered: parent.forceActiveFocus(Qt.TabFocusReason) }
        }
        IconButton { iconName: "go-previous"; text: "Back" }
        IconButton { iconName: "go-up"; text: "Up"; enabled: false }
        IconButton { iconName: "view-refresh"; text: "Scan again"; checked: true; checkable: true }
    }
    Row {
        spacing: 16
        Repeater {
            model: ["None", "Partial", "All", "Included"]
            Row {
                required property int index
                required property string modelData
                TriStateBox { mark: parent.index; text: parent.modelData }
                PlainLabel { height: 28; text: parent.modelData }
            }
        }
        SegmentedSwitch {
            currentIndex: 0
            segments: [{icon: "view-grid", text: "Grid"}, {icon: "view-list", text: "List"}]
        }
        FilterField {}
    }
    Row {
        spacing: 16
        FilterField { text: "node_modules" }
        FilterField { enabled: false; placeholderText: "Disabled" }
    }
    Row {
        spacing: 12
        Card { iconName: "house"; text: "Home"; note: "/home/anna" }
        Card { iconName: "arrow.down.circle"; text: "Downloads"; note: "/home/anna/a-long-name-of-a-folder/Downloads" }
        Card { iconName: "internaldrive"; text: "A very long title of a place"; note: "/"; enabled: false }
    }
    Repeater {
        model: [0, 0.004, 0.2, 0.63, 1]
        Row {
            required property real modelData
            spacing: 8
            SizeBar { share: parent.modelData; anchors.verticalCenter: parent.verticalCenter }
            FigureLabel { width: 80; text: (parent.modelData * 1111.1).toFixed(1) + " MB" }
        }
    }
    StackedBar {
        width: parent.width
        model: ListModel {
            ListElement { title: "Applications"; figure: "12.3 GB"; share: 0.4 }
            ListElement { title: "Wired"; figure: "3.1 GB"; share: 0.2 }
            ListElement { title: "Compressed"; figure: "1.1 GB"; share: 0.1 }
            ListElement { title: "Cached"; figure: "1.1 GB"; share: 0.1 }
            ListElement { title: "Swap"; figure: "0.4 GB"; share: 0.02 }
        }
    }
}
