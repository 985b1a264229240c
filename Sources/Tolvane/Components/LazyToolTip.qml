import QtQuick

/// The tooltip of `parent`, made only while it is wanted: a table of names would else hold hundreds.
Loader {
    id: loader

    required property string text
    required property bool isWanted

    active: isWanted && text !== ""
    source: "PlainToolTip.qml"
    onLoaded: {
        const tip = item as PlainToolTip;
        tip.parent = loader.parent;
        tip.text = Qt.binding(() => loader.text);
        tip.visible = true;
    }
}
