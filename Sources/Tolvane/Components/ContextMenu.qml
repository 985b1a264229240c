import QtQuick
import QtQuick.Templates as T

/// Holds ContextMenuItem and ContextMenuSeparator; `popup()` opens it at the pointer, `popup(item, x,
/// y)` where the keyboard asks for it.
T.Menu {
    id: control

    implicitWidth: 232
    implicitHeight: contentHeight + topPadding + bottomPadding
    margins: Theme.spacing
    padding: Theme.halfSpacing
    overlap: 1
    delegate: ContextMenuItem {}

    contentItem: ListView {
        implicitHeight: contentHeight
        model: control.contentModel
        interactive: false
        clip: true
        currentIndex: control.currentIndex
    }

    background: Rectangle {
        radius: Theme.spacing
        color: Theme.surface
        border.color: Theme.line
    }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.duration }
    }
}
