import QtQuick

/// A number or size: right-aligned, in figures of one width, never elided.
PlainLabel {
    font.family: Theme.figureFamily
    horizontalAlignment: Text.AlignRight
    elide: Text.ElideNone
}
