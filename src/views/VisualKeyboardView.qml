pragma ComponentBehavior: Bound

import QtQuick
import Hmatnik

// The drawn keyboard, and the shortcuts that use the selected key.
Item {
    id: root

    required property AppModel model
    required property FilterBarState filterBar
    readonly property Flickable scroller: grid
    readonly property var availableKeys: keyboard.availableKeys
    readonly property keySizes sizes: keyboard.sizes(card.width - 36, Screen.devicePixelRatio)

    VisualKeyboard {
        id: keyboard

        model: root.model
        onRestarted: grid.restart()
    }

    PlainText {
        id: hint

        x: 22
        y: 22
        width: parent.width - 44
        text: "Klikni na klávesu a objev všechny zkratky, které ji používají."
        color: Theme.textSecondary
        wrapMode: Text.Wrap
    }

    GlassSurface {
        id: card

        anchors.top: hint.bottom
        anchors.topMargin: 20
        x: 22
        width: parent.width - 44
        height: rows.height + 36

        FocusScope {
            id: keys

            anchors.fill: parent
            activeFocusOnTab: true
            Accessible.role: Accessible.Grouping
            Accessible.name: "Klávesnice"
            Keys.onLeftPressed: keyboard.walk(VisualKeyboard.Left)
            Keys.onRightPressed: keyboard.walk(VisualKeyboard.Right)
            Keys.onUpPressed: keyboard.walk(VisualKeyboard.Up)
            Keys.onDownPressed: keyboard.walk(VisualKeyboard.Down)

            Column {
                id: rows

                anchors.centerIn: parent
                spacing: root.sizes.rowSpacing

                Repeater {
                    model: keyboard.keyRows

                    Row {
                        id: row

                        required property var modelData
                        required property int index

                        anchors.horizontalCenter: parent?.horizontalCenter
                        spacing: root.sizes.keySpacing

                        Repeater {
                            model: row.modelData

                            KeyboardKey {
                                required property string modelData
                                required property int index

                                width: root.sizes.width(modelData)
                                height: root.sizes.keyHeight
                                text: keyboard.caption(modelData)
                                checked: keyboard.selectedKey === modelData
                                available: root.availableKeys.includes(modelData)
                                focus: keyboard.currentRow === row.index && keyboard.currentColumn === index
                                Accessible.description: keyboard.description(modelData, available)
                                onClicked: {
                                    keyboard.setCurrent(row.index, index);
                                    keyboard.click(modelData);
                                }
                            }
                        }
                    }
                }
            }
        }
    }

    ModifierFilterBar {
        id: bar

        anchors.top: card.bottom
        anchors.topMargin: 20
        x: 22
        width: parent.width - 44
        filters: root.filterBar
    }

    CardGrid {
        id: grid

        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        topMargin: 20
        minimumColumn: 240
        columnSpacing: 12
        rows: keyboard.cards
        onToggleFavorite: card => keyboard.toggleFavorite(card)
    }
}
