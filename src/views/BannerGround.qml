import QtQuick
import Hmatnik

// What a banner stands on.
Item {
    id: root

    required property color tint

    Rectangle {
        anchors.fill: parent
        radius: 12
        color: Theme.faded(root.tint, 0.09)
        Accessible.ignored: true
    }
    // Over the fill, not in its place, as a border of the same rectangle would be.
    Rectangle {
        anchors.fill: parent
        radius: 12
        color: "transparent"
        border.width: 1
        border.color: Theme.faded(root.tint, 0.25)
        Accessible.ignored: true
    }
}
