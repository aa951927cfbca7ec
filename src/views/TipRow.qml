import QtQuick
import Hmatnik

// One shortcut of the menu-bar window. Not a button: pressing it does nothing.
Rectangle {
    id: root

    required property cardData modelData

    height: caps.height + 10
    radius: 6
    color: hover.hovered ? Theme.quaternaryFill : "transparent"
    Accessible.role: Accessible.ListItem
    Accessible.name: modelData.title
    Accessible.description: modelData.spoken

    HoverHandler {
        id: hover
    }
    PlainText {
        anchors.verticalCenter: parent.verticalCenter
        x: 8
        width: parent.width - caps.width - 26
        text: root.modelData.title
        font: Theme.font(12.5 * Theme.textScale, Font.Normal)
        elide: Text.ElideRight
        maximumLineCount: 1
        Accessible.ignored: true
    }
    KeyCaps {
        id: caps

        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        keys: root.modelData.keys
        compact: true
        maximumCapWidth: 110 * Theme.textScale
    }
}
