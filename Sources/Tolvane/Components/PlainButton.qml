/// Any other action, with a text, a drawing or both.
ActionButton {
    fill: Theme.control
    hoveredFill: Theme.controlHovered
    pressedFill: Theme.controlPressed
    ink: Theme.text
    edge: Theme.line
}
