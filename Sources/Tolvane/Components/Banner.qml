import QtQuick
import QtQuick.Layouts

/// One line on what just happened, with one thing to do about it. An empty text takes no room.
Rectangle {
    id: banner

    enum Kind { Information, Success, Warning }

    required property string text
    property int kind: Banner.Information
    property string actionText
    property bool isDismissible: true
    readonly property color ink: kind === Banner.Warning ? Theme.warningText
        : kind === Banner.Success ? Theme.successText : Theme.accentText

    signal actionTriggered()
    signal dismissed()

    visible: text !== ""
    implicitHeight: visible ? Math.max(44, line.implicitHeight + Theme.spacing) : 0
    radius: Theme.radius
    color: kind === Banner.Warning ? Theme.warningSoft : Theme.surface
    border.color: kind === Banner.Warning ? Theme.warningSoft : Theme.line
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    RowLayout {
        id: line

        anchors.fill: parent
        anchors.leftMargin: 12
        anchors.rightMargin: 6
        spacing: 10

        Icon {
            name: banner.kind === Banner.Warning ? "dialog-warning"
                : banner.kind === Banner.Success ? "emblem-ok" : "dialog-information"
            color: banner.ink
        }
        ElidedLabel {
            objectName: "bannerText"
            Layout.fillWidth: true
            text: banner.text
            maximumLineCount: 2
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
        PlainButton {
            objectName: "bannerAction"
            visible: banner.actionText !== ""
            text: banner.actionText
            onClicked: banner.actionTriggered()
        }
        IconButton {
            objectName: "bannerDismiss"
            visible: banner.isDismissible
            iconName: "window-close"
            text: qsTr("Dismiss")
            ink: Theme.secondaryText
            onClicked: banner.dismissed()
        }
    }
}
