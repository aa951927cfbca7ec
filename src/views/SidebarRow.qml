import QtQuick
import QtQuick.Templates as T
import Hmatnik

// A destination of the sidebar.
T.AbstractButton {
    id: root

    required property string symbol
    required property bool selected
    // How far the row is lit: 1 when it is the chosen one.
    property real lit: selected ? 1 : 0

    Behavior on lit {
        enabled: !Theme.reducedMotion
        NumberAnimation {
            duration: 350
            easing.type: Easing.InOutQuad
        }
    }

    implicitHeight: Math.round(30 * Theme.textScale)
    opacity: down ? 0.7 : 1
    focusPolicy: Qt.NoFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: text
    Accessible.selectable: true
    Accessible.selected: selected
    Accessible.focusable: true
    Accessible.focused: activeFocus

    background: Rectangle {
        radius: 8
        color: Theme.accentFill
        opacity: root.lit
        Accessible.ignored: true
    }
    contentItem: Item {
        IconLabel {
            x: 9
            anchors.verticalCenter: parent.verticalCenter
            spacing: 8
            symbol: root.symbol
            symbolSize: 16
            symbolWidth: 19
            symbolColor: Qt.tint(Theme.blueSymbol, Qt.rgba(1, 1, 1, root.lit))
            text: root.text
            font: Theme.sidebarRow
            color: Qt.tint(Theme.textPrimary, Qt.rgba(1, 1, 1, root.lit))
            maximumTextWidth: parent.width - 26 - 19 * Theme.textScale
            ignored: true
        }
    }

    FocusRing {
        gap: 0
        visible: root.activeFocus && root.focusReason !== Qt.MouseFocusReason
        stroke: root.selected ? Theme.textPrimary : Theme.accent
    }
}
