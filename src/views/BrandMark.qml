import QtQuick
import Hmatnik

// The command mark in the blue gradient.
Rectangle {
    id: mark

    property real markSize: width * 0.65

    implicitWidth: 28
    implicitHeight: 28
    radius: 7
    gradient: Gradient {
        GradientStop {
            position: 0
            color: Theme.brandTop
        }
        GradientStop {
            position: 1
            color: Theme.brandBottom
        }
    }
    Accessible.ignored: true

    Symbol {
        anchors.centerIn: parent
        name: "command"
        size: mark.markSize
        scaling: 1
        color: "white"
    }
}
