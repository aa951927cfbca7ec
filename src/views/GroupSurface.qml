import Hmatnik

// The ground of a group of settings or of a form.
Surface {
    radius: 8
    fill: Theme.well
    stroke: Theme.edgeShadow
    edgeShadow: "transparent"
    wideShadow: "transparent"
}
