import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

/// A choice that is either taken or not; `clicked()` asks the owner to change it.
T.AbstractButton {
    id: control

    required property bool isTicked

    implicitWidth: implicitContentWidth
    // A click leaves the keyboard where it is.
    focusPolicy: Qt.TabFocus
    implicitHeight: Theme.controlHeight
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: isTicked

    contentItem: RowLayout {
        spacing: 2

        TriStateBox {
            focusPolicy: Qt.NoFocus
            mark: control.isTicked ? TriStateBox.All : TriStateBox.None
            Accessible.ignored: true
            onClicked: control.clicked()

            FocusRing {
                gap: -5
                visible: control.visualFocus
            }
        }
        PlainLabel {
            Layout.fillWidth: true
            text: control.text
            Accessible.ignored: true
        }
    }
}
