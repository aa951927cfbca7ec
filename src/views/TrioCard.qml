import QtQuick
import Hmatnik

// One of the three shortcuts of the day.
GlassSurface {
    id: root

    required property cardData card
    required property string symbol
    required property string kind
    required property color tint

    implicitHeight: Math.max(230, content.implicitHeight + 40)
    Accessible.role: Accessible.ListItem
    Accessible.name: card.title
    Accessible.description: card.spoken

    Column {
        id: content

        x: 20
        y: 20
        width: parent.width - 40
        spacing: 14

        Symbol {
            width: parent.width
            name: root.symbol
            size: 30
            color: root.tint
        }
        PlainText {
            width: parent.width
            text: root.kind
            font: Theme.captionBold
            color: Theme.textSecondary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
        }
        PlainText {
            width: parent.width
            text: root.card.title
            font: Theme.headline
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
        PlainText {
            width: parent.width
            text: root.card.detail
            font: Theme.caption
            color: Theme.textSecondary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
        KeyCaps {
            anchors.horizontalCenter: parent.horizontalCenter
            keys: root.card.keys
            maximumCapWidth: content.width
        }
    }
}
