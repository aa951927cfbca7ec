import Hmatnik

// The translucent rounded ground that cards, buttons, pills and the search field share.
Surface {
    radius: 14
    fill: Theme.glassFill
    stroke: Theme.glassStroke
    edgeShadow: Theme.edgeShadow
    wideShadow: Theme.wideShadow
}
