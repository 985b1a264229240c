import QtQuick
import Tolvane
import Tolvane.Components

/// What is being read, and how long that will still take.
Item {
    id: page

    required property ScanViewModel controller

    ProgressPanel {
        objectName: "scanProgress"
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.pageMargin, 640)
        title: page.controller.activity.title
        path: page.controller.activity.pathText
        counts: page.controller.activity.countsText
        elapsed: page.controller.activity.elapsedText
        remaining: page.controller.activity.remainingText
        fraction: page.controller.activity.fraction
        onCancelRequested: page.controller.cancelActivity()
    }
}
