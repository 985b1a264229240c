import QtQuick

/// A name or path that tells itself whole in a tooltip when there is no room for it.
PlainLabel {
    id: label

    /// What the tooltip says: the full path, where `text` is only a name.
    property string fullText: text

    HoverHandler {
        id: pointer
    }

    LazyToolTip {
        isWanted: pointer.hovered && (label.truncated || label.fullText !== label.text)
        text: label.fullText
    }
}
