import QtQuick
import Tolvane.Components

/// What an application looks like. Decoration for assistive tools: its name must be said beside it.
Image {
    /// As the list of applications tells it; empty for one that has no picture.
    required property string iconKey
    property int size: 32

    width: size
    height: size
    sourceSize.width: size
    sourceSize.height: size
    fillMode: Image.PreserveAspectFit
    source: "image://application/" + Theme.secondaryText.toString().slice(-6) + "/" + iconKey
    Accessible.ignored: true
}
