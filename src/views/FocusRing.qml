import QtQuick
import Hmatnik

// Shows which control has the keyboard; drawn around its parent.
Surface {
    property real gap: 2

    anchors.fill: parent
    anchors.margins: -gap
    radius: 8
    fill: "transparent"
    strokeWidth: 2
    stroke: Theme.accent
    edgeShadow: "transparent"
    wideShadow: "transparent"
    Accessible.ignored: true
}
