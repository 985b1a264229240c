import QtQuick
import Tolvane
import Tolvane.Components

/// What is being read, and how long that will still take.
Item {
    id: page

    required property Activity activity

    signal cancelRequested()

    ProgressPanel {
        objectName: "scanProgress"
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.pageMargin, 640)
        title: page.activity.title
        path: page.activity.pathText
        counts: page.activity.countsText
        elapsed: page.activity.elapsedText
        remaining: page.activity.remainingText
        fraction: page.activity.fraction
        onCancelRequested: page.cancelRequested()
    }
}
