import QtQuick
import Hmatnik

// The library: filters, the message of the last import, and the cards.
Item {
    id: root

    required property AppModel model
    required property LibraryState library
    required property FilterBarState filterBar
    readonly property Flickable scroller: grid

    ModifierFilterBar {
        id: bar

        x: 22
        width: parent.width - 44
        filters: root.filterBar
    }

    Announcer {
        text: root.model.importMessage
        source: message
    }
    IconLabel {
        id: message

        anchors.top: bar.bottom
        anchors.topMargin: visible ? 8 : 0
        x: 22
        height: visible ? implicitHeight : 0
        visible: root.model.importMessage.length > 0
        symbol: "checkmark.circle.fill"
        text: root.model.importMessage
        font: Theme.caption
        color: Theme.textSecondary
        maximumTextWidth: parent.width - 70
        ignored: true
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }

    CardGrid {
        id: grid

        anchors.top: message.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: !root.library.empty
        rows: root.library.rows
        onToggleFavorite: card => root.library.toggleFavorite(card)

        Connections {
            target: root.library
            function onRestarted() {
                grid.restart();
            }
        }
    }

    EmptyState {
        anchors.top: message.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: root.library.empty
        symbol: "keyboard.badge.ellipsis"
        title: "Žádná odpovídající zkratka"
        description: "Zrušte některý filtr nebo změňte hledání."
    }
}
