import QtQuick
import QtQuick.Templates as T
import Hmatnik

// A thin bar that shows only while it is of use.
T.ScrollBar {
    id: root

    // Shows all the time: that there is more, is said by nothing else.
    property bool steady: false

    implicitWidth: 10
    implicitHeight: 10
    padding: 2
    minimumSize: 0.06
    visible: size < 1
    focusPolicy: Qt.NoFocus
    Accessible.ignored: true

    contentItem: Rectangle {
        implicitWidth: 6
        implicitHeight: 6
        radius: 3
        color: root.pressed || root.hovered ? Theme.textSecondary : Theme.scrollThumb
        opacity: root.active || root.steady ? 1 : 0
        Accessible.ignored: true

        Behavior on opacity {
            enabled: !Theme.reducedMotion
            NumberAnimation {
                duration: 150
            }
        }
    }
}
