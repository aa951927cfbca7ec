pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Hmatnik

// What to press when something went wrong.
ScrollingScreen {
    id: root

    required property AppModel model

    contentHeight: content.height + 44
    activeFocusOnTab: interactive

    FirstAid {
        id: aid

        model: root.model
    }

    Column {
        id: content

        x: Math.max(22, (root.width - width) / 2)
        y: 22
        width: Math.min(850, root.width - 44)
        spacing: 14

        PlainText {
            width: parent.width
            text: "Co se právě stalo?"
            font: Theme.title2Bold
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
        }
        PlainText {
            width: parent.width
            text: "Vyber situaci. Hmatník nabídne nejrychlejší cestu ven."
            color: Theme.textSecondary
            wrapMode: Text.Wrap
        }

        Repeater {
            model: aid.situations

            GlassSurface {
                id: card

                required property var modelData

                width: content.width
                height: inside.height + 34
                Accessible.role: Accessible.List
                Accessible.name: modelData.title

                Column {
                    id: inside

                    x: 17
                    y: 17
                    width: parent.width - 34
                    spacing: 10

                    IconLabel {
                        height: Math.round(17 * Theme.textScale)
                        spacing: 7
                        symbol: card.modelData.symbol
                        symbolSize: 17
                        text: card.modelData.title
                        font: Theme.headline
                        maximumTextWidth: inside.width - 7 - 17 * Theme.textScale
                    }
                    RowLayout {
                        width: parent.width
                        spacing: 8

                        Repeater {
                            model: card.modelData.cards

                            ShortcutTile {
                                required property var modelData

                                card: modelData
                                Layout.fillWidth: true
                                Layout.fillHeight: true
                                Layout.preferredWidth: 1
                            }
                        }
                    }
                }
            }
        }

        GlassSurface {
            width: content.width
            height: warning.height + 34
            visible: aid.startupOfMacShown

            Column {
                id: warning

                x: 17
                y: 17
                width: parent.width - 34
                spacing: 10

                IconLabel {
                    height: Math.round(17 * Theme.textScale)
                    spacing: 7
                    symbol: "exclamationmark.shield.fill"
                    symbolSize: 17
                    text: "Spuštění a obnovení Macu"
                    font: Theme.headline
                    color: Theme.orangeText
                    maximumTextWidth: warning.width - 7 - 17 * Theme.textScale
                }
                PlainText {
                    width: parent.width
                    text: "Tyto postupy nejsou běžné klávesové zkratky. Nejdřív Mac bezpečně vypněte a uložte práci."
                    font: Theme.subheadline
                    wrapMode: Text.Wrap
                }
                PlainText {
                    width: parent.width
                    text: "Apple silicon: podržte vypínač, dokud se nezobrazí Volby spuštění. Intel Mac: při zapnutí lze použít ⌘R pro zotavení; další kombinace se liší podle modelu."
                    font: Theme.caption
                    color: Theme.textSecondary
                    wrapMode: Text.Wrap
                }
                PlainText {
                    width: parent.width
                    text: "Reset NVRAM a staré startovací kombinace nepoužívejte bez ověření typu Macu a aktuální dokumentace Apple."
                    font: Theme.captionSemibold
                    color: Theme.orangeText
                    wrapMode: Text.Wrap
                }
            }
        }
    }
}
