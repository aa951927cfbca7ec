import QtQuick
import QtQuick.Templates as T
import Hmatnik

// A row with a switch. It only asks for a change and shows what has become of it: a desktop may
// refuse, or still wait for the person's approval.
T.AbstractButton {
    id: root

    required property bool on

    signal flipped(bool on)

    implicitHeight: Math.round(30 * Theme.textScale)
    checkable: true
    checked: on
    focusPolicy: Qt.TabFocus
    onClicked: {
        flipped(!on);
        checked = Qt.binding(() => on);
    }
    Accessible.name: text

    contentItem: PlainText {
        rightPadding: 46
        text: root.text
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    indicator: Rectangle {
        x: root.width - width
        y: (root.height - height) / 2
        width: 34
        height: 20
        radius: 10
        color: root.on ? Theme.accentFill : Theme.quaternaryFill
        border.width: root.on ? 0 : 1
        border.color: Theme.keyCapBorder
        Accessible.ignored: true

        Behavior on color {
            enabled: !Theme.reducedMotion
            ColorAnimation {
                duration: 120
            }
        }

        Surface {
            x: root.on ? 16 : 2
            y: 2
            width: 16
            height: 16
            radius: 8
            fill: "white"
            stroke: "transparent"
            edgeShadow: Theme.faded("black", 0.25)
            wideShadow: "transparent"
            opacity: root.down ? 0.85 : 1

            Behavior on x {
                enabled: !Theme.reducedMotion
                NumberAnimation {
                    duration: 120
                    easing.type: Easing.OutCubic
                }
            }
        }
    }

    FocusRing {
        visible: root.visualFocus
    }
}
