/// Removes or kills. Never the default of a sheet: Return reaches it only while it has the focus.
ActionButton {
    fill: Theme.danger
    hoveredFill: Theme.dangerHovered
    pressedFill: Theme.dangerPressed
    ink: Theme.accentInk
}
