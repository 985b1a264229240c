import QtQuick
import Tolvane
import Tolvane.Components

/// The running check: where it is, and what is behind and before it.
Item {
    id: page

    required property BrightpassViewModel controller

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.pageMargin, 640)
        spacing: Theme.pageMargin

        ProgressPanel {
            objectName: "scanProgress"
            width: parent.width
            title: page.controller.activity.title
            elapsed: page.controller.activity.elapsedText
            onCancelRequested: page.controller.cancelActivity()
        }
        Column {
            x: Theme.pageMargin
            spacing: Theme.spacing

            Repeater {
                model: page.controller.stages

                BrightpassStage {}
                onItemAdded: (index, item) => {
                    const line = item as BrightpassStage;
                    line.stageNumber = Qt.binding(() => page.controller.stageNumber);
                }
            }
        }
    }
}
