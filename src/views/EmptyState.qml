import QtQuick
import Hmatnik

// Stands where there is nothing to show, and says why.
Item {
    id: root

    required property string symbol
    required property string title
    required property string description

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 44, 420)
        spacing: 6

        Symbol {
            width: parent.width
            name: root.symbol
            size: 44
            color: Theme.textSecondary
        }
        PlainText {
            width: parent.width
            text: root.title
            font: Theme.title2Bold
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
        PlainText {
            width: parent.width
            text: root.description
            font: Theme.body
            color: Theme.textSecondary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }
}
