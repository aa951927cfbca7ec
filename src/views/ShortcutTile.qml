import QtQuick
import Hmatnik

// A shortcut that helps in some situation.
Rectangle {
    id: root

    required property cardData card

    implicitHeight: content.implicitHeight + 24
    radius: 10
    color: Theme.well
    Accessible.role: Accessible.ListItem
    Accessible.name: card.title
    Accessible.description: card.spoken

    Column {
        id: content

        x: 12
        y: 12
        width: parent.width - 24
        spacing: 7

        PlainText {
            width: parent.width
            text: root.card.title
            font: Theme.subheadlineSemibold
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
        PlainText {
            width: parent.width
            text: root.card.detail
            font: Theme.caption
            color: Theme.textSecondary
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
        KeyCaps {
            keys: root.card.keys
            maximumCapWidth: content.width
        }
    }
}
