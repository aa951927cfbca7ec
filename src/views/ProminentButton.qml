import QtQuick
import QtQuick.Templates as T
import Hmatnik

// The button that a screen leads to.
T.AbstractButton {
    id: root

    property bool large: false

    implicitWidth: Math.ceil(implicitContentWidth) + leftPadding + rightPadding
    leftPadding: large ? 20 : 14
    rightPadding: leftPadding
    implicitHeight: large ? 33 : 27
    opacity: down ? 0.7 : (enabled ? 1 : 0.5)
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.Button
    Accessible.name: text
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: Rectangle {
        radius: 7
        color: Theme.accent
        Accessible.ignored: true
    }
    contentItem: PlainText {
        text: root.text
        font: Theme.body
        color: "white"
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    FocusRing {
        visible: root.visualFocus
    }
}
