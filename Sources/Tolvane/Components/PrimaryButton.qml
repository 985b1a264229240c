/// The one thing a screen wants done; at most one in view.
ActionButton {
    fill: Theme.accent
    hoveredFill: Theme.accentHovered
    pressedFill: Theme.accentPressed
    ink: Theme.accentInk
}
