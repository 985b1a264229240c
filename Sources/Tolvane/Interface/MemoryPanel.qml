import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// What the memory is used for, and how much of it was over the last minutes.
PerformancePanel {
    id: panel

    required property PerformanceViewModel controller

    title: qsTr("Memory")
    summary: controller.hasMemory ? controller.memoryText : qsTr("The system does not tell how its memory is used")

    StackedBar {
        Layout.fillWidth: true
        visible: panel.controller.hasMemory
        model: panel.controller.memoryParts
        Accessible.role: Accessible.Graphic
        Accessible.name: panel.controller.memoryText
    }
    RowLayout {
        visible: panel.controller.hasMemory
        spacing: Theme.pageMargin

        HistoryGraph {
            objectName: "memoryHistory"
            Layout.fillWidth: true
            Layout.fillHeight: true
            values: panel.controller.history
            startText: qsTr("5 minutes ago")
            endText: qsTr("Now")
            summary: panel.controller.historyText
        }
        // A layout would not outlive its items being replaced while it arranges them.
        Column {
            Layout.minimumWidth: 200
            Layout.maximumWidth: 200
            spacing: 6

            Repeater {
                model: panel.controller.memoryFigures

                Item {
                    id: line

                    required property string title
                    required property string figure
                    required property bool isAlarming

                    width: 200
                    height: 18

                    PlainLabel {
                        text: line.title
                        color: Theme.secondaryText
                        font.pixelSize: Theme.smallText
                    }
                    FigureLabel {
                        anchors.right: parent.right
                        text: line.figure
                        color: line.isAlarming ? Theme.warningText : Theme.text
                        font.pixelSize: Theme.smallText
                        font.weight: line.isAlarming ? Font.DemiBold : Font.Normal
                    }
                }
            }
        }
    }
}
