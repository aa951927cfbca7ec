pragma ComponentBehavior: Bound

import QtQuick
import Hmatnik

// Three shortcuts to learn today, and the confirmation that they are known.
ScrollingScreen {
    id: root

    required property AppModel model

    contentHeight: content.height + 44

    DailyTrio {
        id: daily

        model: root.model
        active: root.Window.visibility !== Window.Hidden
    }

    Connections {
        target: root.Window.window
        function onActiveChanged() {
            daily.refresh();
        }
    }

    Column {
        id: content

        x: 22
        y: 22
        width: root.width - 44
        spacing: 22

        IconLabel {
            anchors.horizontalCenter: parent.horizontalCenter
            height: Math.round(15 * Theme.textScale)
            symbol: "flame.fill"
            text: daily.headline
            font: Theme.captionBold
            color: Theme.orangeText
        }

        Row {
            id: cards

            readonly property real tallest: {
                let height = 230;
                for (let i = 0; i < trio.count; ++i) {
                    const item = trio.itemAt(i);
                    if (item)
                        height = Math.max(height, item.implicitHeight);
                }
                return height;
            }

            spacing: PixelGrid.snapped(14, Screen.devicePixelRatio)
            Accessible.role: Accessible.List
            Accessible.name: "Dnešní trojice"

            Repeater {
                id: trio

                model: daily.cards

                TrioCard {
                    required property var modelData
                    required property int index

                    width: PixelGrid.columnWidth(index, trio.count, content.width, 14, Screen.devicePixelRatio)
                    height: cards.tallest
                    card: modelData.card
                    symbol: modelData.symbol
                    kind: modelData.kind
                    tint: [Theme.blueSymbol, Theme.purpleSymbol, Theme.orangeSymbol][index]
                }
            }
        }

        ProminentButton {
            anchors.horizontalCenter: parent.horizontalCenter
            large: true
            enabled: !daily.learnedToday
            // Says that today's task is done.
            informative: true
            text: daily.confirmationText
            onClicked: daily.complete()
        }

        PlainText {
            width: parent.width
            text: "Jeden základ, jeden tip pro aktivní aplikaci a jedna zkratka podle vašeho používání."
            font: Theme.caption
            color: Theme.textTertiary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }
}
