import QtQuick

/// One of our drawings, tinted. Decoration for assistive tools: what it says must be said by a text
/// or by the name of the control that holds it.
Image {
    /// A drawing's name, or the symbol of a quick location or module.
    required property string name
    property color color: Theme.text
    property int size: 20

    width: size
    height: size
    sourceSize.width: size
    sourceSize.height: size
    fillMode: Image.PreserveAspectFit
    // The pixels of a colour with alpha come from `opacity`: the source knows opaque colours only.
    source: name === "" ? "" : "image://icon/" + name + "/" + color.toString().slice(-6)
    Accessible.ignored: true
}
