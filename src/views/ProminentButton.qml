pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Hmatnik

// The button that a screen leads to.
T.AbstractButton {
    id: root

    property bool large: false
    property real radius: 7
    // True where its text is worth reading also while it can't be pressed.
    property bool informative: false
    // Stands before the text; none if empty.
    property string symbol: ""

    implicitWidth: Math.ceil(implicitContentWidth) + leftPadding + rightPadding
    leftPadding: rightPadding + (symbol ? Math.round(20 * Theme.textScale) : 0)
    rightPadding: large ? 20 : 14
    implicitHeight: Math.round((large ? 33 : 27) * Theme.textScale)
    opacity: down ? 0.7 : 1
    focusPolicy: Qt.TabFocus
    font: Theme.body
    Accessible.role: Accessible.Button
    Accessible.name: text
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: Rectangle {
        radius: root.radius
        color: root.enabled ? Theme.accentFill : Theme.quaternaryFill
        Accessible.ignored: true
    }
    contentItem: PlainText {
        text: root.text
        font: root.font
        color: root.enabled ? "white" : root.informative ? Theme.textSecondary : Theme.textDisabled
        elide: Text.ElideRight
        maximumLineCount: 1
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    Loader {
        anchors.verticalCenter: parent.verticalCenter
        x: root.rightPadding
        Component.onCompleted: {
            if (root.symbol)
                setSource("Symbol.qml", {
                    name: root.symbol,
                    size: 14,
                    color: "white"
                });
        }
    }

    FocusRing {
        visible: root.visualFocus
    }
}
