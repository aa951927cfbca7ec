pragma ComponentBehavior: Bound

import QtQuick
import Hmatnik

// Content of the floating panel: the best shortcuts for the application in front.
Item {
    id: root

    required property TipsState tips
    required property ShellBridge shell

    width: Math.round(380 * Theme.textScale)
    height: content.height + 36

    Rectangle {
        anchors.fill: parent
        radius: 14
        color: Theme.windowBackground
        Accessible.ignored: true
    }
    GlassSurface {
        anchors.fill: parent
        edgeShadow: "transparent"
        wideShadow: "transparent"
    }

    Column {
        id: content

        x: 18
        y: 18
        width: parent.width - 36
        spacing: 14

        Item {
            width: parent.width
            height: Math.max(30, titles.height)

            Symbol {
                id: icon

                anchors.verticalCenter: parent.verticalCenter
                width: 20 * Theme.textScale
                name: "macwindow"
                size: 20
                color: Theme.blueSymbol
            }
            Column {
                id: titles

                anchors.left: icon.right
                anchors.leftMargin: 8
                anchors.right: close.left
                anchors.rightMargin: 8
                anchors.verticalCenter: parent.verticalCenter

                PlainText {
                    width: parent.width
                    text: root.tips.activeApp
                    font: Theme.headline
                    elide: Text.ElideRight
                    maximumLineCount: 1
                    Accessible.role: Accessible.Heading
                }
                PlainText {
                    width: parent.width
                    text: "Nejlepší zkratky právě teď"
                    font: Theme.caption
                    color: Theme.textSecondary
                    elide: Text.ElideRight
                }
            }
            PlainButton {
                id: close

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                Accessible.name: "Zavřít"
                onClicked: root.shell.toggleOverlay()

                contentItem: Symbol {
                    name: "xmark.circle.fill"
                    size: 18
                    color: Theme.textSecondary
                }
            }
        }

        Repeater {
            model: root.tips.tips

            Item {
                id: tip

                required property cardData modelData

                width: content.width
                height: Math.max(20, caps.height)
                Accessible.role: Accessible.ListItem
                Accessible.name: modelData.title
                Accessible.description: modelData.spoken

                PlainText {
                    anchors.verticalCenter: parent.verticalCenter
                    width: parent.width - caps.width - 10
                    text: tip.modelData.title
                    font: Theme.subheadline
                    elide: Text.ElideRight
                    maximumLineCount: 1
                    Accessible.ignored: true
                }
                KeyCaps {
                    id: caps

                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    keys: tip.modelData.keys
                    compact: true
                    maximumCapWidth: 120 * Theme.textScale
                }
            }
        }

        Rectangle {
            width: parent.width
            height: 1
            color: Theme.divider
            Accessible.ignored: true
        }

        ProminentButton {
            width: parent.width
            text: "Otevřít celou knihovnu"
            onClicked: {
                root.shell.toggleOverlay();
                root.shell.showMainWindow();
            }
        }
    }
}
