import QtQuick
import Hmatnik

// Soft coloured light behind everything.
Rectangle {
    color: Theme.windowBackground
    clip: true
    Accessible.ignored: true

    component Glow: Image {
        id: glow

        required property real diameter
        required property real blurRadius
        required property color tint
        required property point offset

        anchors.centerIn: parent
        anchors.horizontalCenterOffset: offset.x
        anchors.verticalCenterOffset: offset.y
        width: diameter + 6 * blurRadius
        height: width
        visible: !Theme.highContrast
        source: `image://glow/${diameter}/${blurRadius}/${tint.toString().slice(1)}`
        smooth: true
        Accessible.ignored: true
    }

    Glow {
        diameter: 420
        blurRadius: 90
        tint: Theme.faded(Theme.blue, 0.14)
        offset: Qt.point(250, -240)
    }
    Glow {
        diameter: 360
        blurRadius: 100
        tint: Theme.faded(Theme.purple, 0.1)
        offset: Qt.point(-100, 260)
    }
}
