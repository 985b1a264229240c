import QtQuick
import Tolvane.Components

/// One of the stages of the check: behind it, at work or to come.
Row {
    id: line

    required property int index
    required property string modelData
    /// The stage at work; negative before the first.
    property int stageNumber: -1
    readonly property bool isDone: index < stageNumber
    readonly property bool isCurrent: index === stageNumber

    spacing: Theme.spacing

    Icon {
        anchors.verticalCenter: parent.verticalCenter
        name: line.isDone ? "emblem-ok" : line.isCurrent ? "go-next" : ""
        color: line.isDone ? Theme.successText : Theme.accentText
        size: 16
    }
    PlainLabel {
        text: line.modelData
        color: line.isCurrent ? Theme.text : Theme.secondaryText
        font.weight: line.isCurrent ? Font.Medium : Font.Normal
        Accessible.name: line.isDone ? qsTr("%1, done").arg(text) : line.isCurrent ? qsTr("%1, under way").arg(text) : text
    }
}
