import QtQuick
import QtQuick.Templates as T

/// One line of text to be typed.
T.TextField {
    id: control

    /// What belongs in here, where no label says it.
    property string hint
    /// Why the text is not what it should be; empty when it is.
    property string errorText
    readonly property bool hasError: errorText !== ""

    implicitWidth: 220
    implicitHeight: Theme.controlHeight
    leftPadding: 10
    rightPadding: 10
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentInk
    placeholderTextColor: Theme.secondaryText
    verticalAlignment: TextInput.AlignVCenter
    font.family: Theme.family
    font.pixelSize: Theme.bodyText
    selectByMouse: true
    opacity: enabled ? 1 : 0.5
    Accessible.name: placeholderText
    Accessible.description: errorText

    PlainLabel {
        x: control.leftPadding
        width: control.width - control.leftPadding - control.rightPadding
        height: control.height
        visible: control.length === 0 && control.preeditText === ""
        text: control.placeholderText
        color: control.placeholderTextColor
        Accessible.ignored: true
    }

    LazyToolTip {
        isWanted: control.hovered || control.hasError && control.activeFocus
        text: control.hasError ? control.errorText : control.hint
    }

    background: Rectangle {
        radius: Theme.radius
        color: Theme.control
        border.width: control.activeFocus || control.hasError ? 2 : 1
        border.color: control.hasError ? Theme.warningText : control.activeFocus ? Theme.focusRing : control.hovered ? Theme.secondaryText : Theme.outline
    }
}
