pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Hmatnik

// The most important shortcuts on one page.
ScrollingScreen {
    id: root

    required property AppModel model

    contentHeight: content.height + 44
    activeFocusOnTab: interactive

    Sticker {
        id: sticker

        model: root.model
    }

    Column {
        id: content

        x: 22
        y: 22
        width: root.width - 44
        spacing: 18

        GlassSurface {
            width: parent.width
            height: header.height + 44

            Column {
                id: header

                x: 22
                y: 22
                width: parent.width - 44 - mark.width - 10
                spacing: 5

                PlainText {
                    width: parent.width
                    text: "Nejdůležitější zkratky na jednom místě"
                    font: Theme.titleBold
                    wrapMode: Text.Wrap
                    Accessible.role: Accessible.Heading
                }
                PlainText {
                    width: parent.width
                    text: "Digitální verze samolepky – přehledná, vždy dostupná a připravená k procvičení."
                    color: Theme.textSecondary
                    wrapMode: Text.Wrap
                }
            }
            Symbol {
                id: mark

                anchors.right: parent.right
                anchors.rightMargin: 22
                anchors.verticalCenter: parent.verticalCenter
                width: 48
                name: "command"
                font: Theme.font(48, Font.Light)
                color: Theme.blueSymbol
            }
        }

        GridLayout {
            width: parent.width
            // As many columns of at least 210 as fit, more for larger texts.
            columns: Math.max(1, Math.floor((width + columnSpacing) / (210 * Theme.textScale + columnSpacing)))
            columnSpacing: 10
            rowSpacing: 10
            Accessible.role: Accessible.List
            Accessible.name: "Samolepka"

            Repeater {
                model: sticker.cards

                GlassSurface {
                    id: cell

                    required property var modelData

                    implicitHeight: Math.max(title.implicitHeight, keys.height) + 24
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    Layout.preferredWidth: 1
                    Accessible.role: Accessible.ListItem
                    Accessible.name: modelData.title
                    Accessible.description: modelData.spoken

                    PlainText {
                        id: title

                        x: 12
                        anchors.verticalCenter: parent.verticalCenter
                        width: parent.width - 24 - keys.width - 8
                        text: cell.modelData.title
                        font: Theme.subheadlineMedium
                        wrapMode: Text.Wrap
                        maximumLineCount: 3
                        elide: Text.ElideRight
                        Accessible.ignored: true
                    }
                    KeyCaps {
                        id: keys

                        anchors.right: parent.right
                        anchors.rightMargin: 12
                        anchors.verticalCenter: parent.verticalCenter
                        keys: cell.modelData.keys
                        compact: true
                    }
                }
            }
        }
    }
}
