import QtQuick
import QtQuick.Templates as T

/// A window in the theme's colours and font. It sets every role of the palette: with one missing,
/// controls drawn from the palette would vanish in dark.
T.ApplicationWindow {
    color: Theme.window
    font.family: Theme.family
    font.pixelSize: Theme.bodyText

    palette {
        alternateBase: Theme.window
        base: Theme.surface
        brightText: Theme.accentInk
        button: Theme.control
        buttonText: Theme.text
        dark: Theme.outline
        highlight: Theme.accent
        highlightedText: Theme.accentInk
        light: Theme.controlHovered
        link: Theme.accentText
        linkVisited: Theme.accentText
        mid: Theme.track
        midlight: Theme.controlPressed
        placeholderText: Theme.secondaryText
        shadow: Theme.shade
        text: Theme.text
        toolTipBase: Theme.surface
        toolTipText: Theme.text
        window: Theme.window
        windowText: Theme.text

        disabled {
            buttonText: Theme.disabledText
            text: Theme.disabledText
            windowText: Theme.disabledText
        }
    }
}
