import QtQuick
import QtQuick.Layouts

/// What a screen says while it has nothing to show, in the middle of its place.
Item {
    id: state

    required property string iconName
    required property string title
    property string text
    /// The primary button; empty: none.
    property string actionText
    /// A quiet line beneath: what will be touched, or what was looked at.
    property string note
    /// Stands between the text and the button.
    default property alias content: middle.data

    signal actionTriggered()

    implicitWidth: 480
    implicitHeight: column.implicitHeight

    ColumnLayout {
        id: column

        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.pageMargin, 480)
        spacing: Theme.spacing

        Rectangle {
            Layout.alignment: Qt.AlignHCenter
            Layout.bottomMargin: Theme.spacing
            implicitWidth: 72
            implicitHeight: 72
            radius: 36
            color: Theme.accentSoft

            Icon {
                anchors.centerIn: parent
                name: state.iconName
                color: Theme.accentText
                size: 36
            }
        }
        PlainLabel {
            Layout.fillWidth: true
            text: state.title
            font.pixelSize: Theme.titleText
            font.weight: Font.DemiBold
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
        }
        PlainLabel {
            Layout.fillWidth: true
            visible: text !== ""
            text: state.text
            color: Theme.secondaryText
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            lineHeight: 1.2
        }
        Item {
            id: middle

            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.spacing
            visible: children.length > 0
            implicitWidth: childrenRect.width
            implicitHeight: childrenRect.height
        }
        PrimaryButton {
            objectName: "emptyStateAction"
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.spacing
            visible: text !== ""
            text: state.actionText
            onClicked: state.actionTriggered()
        }
        PlainLabel {
            Layout.fillWidth: true
            visible: text !== ""
            text: state.note
            color: Theme.secondaryText
            font.pixelSize: Theme.smallText
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }
}
