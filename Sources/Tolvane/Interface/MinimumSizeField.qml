import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The size from which on files are looked at.
RowLayout {
    id: setting

    required property DuplicatesViewModel controller
    property bool hasLabel: true

    /// Return: it shall be used at once.
    signal confirmed()

    Layout.fillWidth: false
    spacing: Theme.spacing

    Connections {
        target: setting.controller

        function onMinimumSizeTextChanged(): void {
            field.text = setting.controller.minimumSizeText;
        }
    }

    PlainLabel {
        visible: setting.hasLabel
        text: qsTr("Minimum size")
        color: Theme.secondaryText
    }
    LineField {
        id: field

        /// What is no size gives way to the last that was one.
        function leave(): void {
            if (!setting.controller.setMinimumSize(text)) {
                setting.controller.setMinimumSize(setting.controller.minimumSizeText);
            }
            text = setting.controller.minimumSizeText;
        }

        objectName: "minimumSize"
        Layout.preferredWidth: 96
        text: setting.controller.minimumSizeText
        hint: setting.hasLabel ? "" : qsTr("Minimum size")
        errorText: setting.controller.minimumSizeError
        horizontalAlignment: TextInput.AlignRight
        Accessible.name: qsTr("Minimum size")
        onActiveFocusChanged: if (!activeFocus) leave()
        Keys.onReturnPressed: if (setting.controller.setMinimumSize(text)) setting.confirmed()
        Keys.onEnterPressed: if (setting.controller.setMinimumSize(text)) setting.confirmed()
        Keys.onEscapePressed: event => {
            event.accepted = text !== setting.controller.minimumSizeText;
            text = setting.controller.minimumSizeText;
            setting.controller.setMinimumSize(text);
        }
    }
}
