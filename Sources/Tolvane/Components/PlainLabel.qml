import QtQuick

/// A text as it stands: names that look like markup stay what they are.
Text {
    color: Theme.text
    linkColor: Theme.accentText
    font.family: Theme.family
    font.pixelSize: Theme.bodyText
    textFormat: Text.PlainText
    elide: Text.ElideRight
    verticalAlignment: Text.AlignVCenter
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
