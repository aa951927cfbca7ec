import QtQuick
import Hmatnik

// Shows which control has the keyboard; drawn around its parent.
Rectangle {
    property real gap: 2

    anchors.fill: parent
    anchors.margins: -gap
    color: "transparent"
    radius: 8
    border.width: 2
    border.color: Theme.accent
    Accessible.ignored: true
}
