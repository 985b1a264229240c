import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

/// A question or list over the dimmed window. It keeps the focus inside and shows itself while
/// `isShown`; Esc and Cancel only ask for its end with `dismissed`, the owner then clears `isShown`.
T.Popup {
    id: sheet

    required property bool isShown
    required property string title
    /// A quiet sentence under the title.
    property string text
    /// At the left of the buttons: a total.
    property string note
    property real preferredWidth: 560
    /// Between title and buttons; children may use Layout.fillWidth and fillHeight, and scroll by
    /// themselves where the window is low.
    default property alias content: body.data
    /// From the quiet one to the main one.
    property alias buttons: buttonRow.data
    /// Pressed by Return from anywhere in the sheet; never a destructive one.
    property T.AbstractButton defaultButton: null
    /// Gets the focus when the sheet comes.
    property Item initialFocus: defaultButton

    signal dismissed()

    parent: T.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round((parent.height - height) / 2) : 0
    width: Math.min(preferredWidth, (parent?.width ?? preferredWidth) - 2 * Theme.pageMargin)
    height: Math.min(column.implicitHeight + 2 * padding, (parent?.height ?? 10000) - 2 * Theme.pageMargin)
    padding: Theme.pageMargin
    visible: isShown
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose
    onOpened: (initialFocus ?? column).forceActiveFocus(Qt.TabFocusReason)

    T.Overlay.modal: Rectangle {
        color: Theme.shade
    }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.duration }
    }

    background: Rectangle {
        radius: Theme.cardRadius
        color: Theme.surface
        border.color: Theme.line
    }

    ColumnLayout {
        id: column

        anchors.fill: parent
        spacing: Theme.wideSpacing
        Accessible.role: Accessible.Dialog
        Accessible.name: sheet.title
        Keys.onEscapePressed: sheet.dismissed()
        Keys.onReturnPressed: if (sheet.defaultButton?.enabled) sheet.defaultButton.clicked()
        Keys.onEnterPressed: if (sheet.defaultButton?.enabled) sheet.defaultButton.clicked()

        ColumnLayout {
            spacing: Theme.halfSpacing

            PlainLabel {
                Layout.fillWidth: true
                text: sheet.title
                font.pixelSize: Theme.titleText
                font.weight: Font.DemiBold
                wrapMode: Text.Wrap
                Accessible.role: Accessible.Heading
            }
            PlainLabel {
                Layout.fillWidth: true
                visible: text !== ""
                text: sheet.text
                color: Theme.secondaryText
                wrapMode: Text.Wrap
                lineHeight: 1.2
            }
        }
        ColumnLayout {
            id: body

            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: children.length > 0
            spacing: Theme.spacing
        }
        RowLayout {
            Layout.topMargin: Theme.spacing
            spacing: Theme.wideSpacing

            PlainLabel {
                Layout.fillWidth: true
                text: sheet.note
                color: Theme.secondaryText
            }
            Row {
                id: buttonRow

                spacing: Theme.spacing
            }
        }
    }
}
