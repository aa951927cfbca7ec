import QtQuick
import Hmatnik

// Shows which field of a form has the keyboard: an edge in the accent, with a glow around it.
Item {
    anchors.margins: -3

    Rectangle {
        anchors.fill: parent
        radius: 9
        color: "transparent"
        border.width: 3
        border.color: Theme.faded(Theme.accent, 0.35)
        Accessible.ignored: true
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: 3
        radius: 6
        color: "transparent"
        border.width: 1
        border.color: Theme.accent
        Accessible.ignored: true
    }
}
