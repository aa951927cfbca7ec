pragma ComponentBehavior: Bound

import QtQuick
import Hmatnik

// Content of the menu-bar item's window: tips for the application in front, and three commands.
Item {
    id: root

    required property TipsState tips
    required property ShellBridge shell

    width: Math.round(320 * Theme.textScale)
    height: content.height

    Rectangle {
        anchors.fill: parent
        radius: 12
        color: Theme.windowBackground
        Accessible.ignored: true
    }

    Column {
        id: content

        width: parent.width

        Item {
            width: parent.width
            height: Math.max(56, names.height + 20)

            BrandMark {
                id: badge

                x: 12
                y: 12
                width: 32
                height: 32
                radius: 8
                markSize: 15
            }
            Column {
                id: names

                anchors.left: badge.right
                anchors.leftMargin: 10
                anchors.right: parent.right
                anchors.rightMargin: 12
                anchors.verticalCenter: badge.verticalCenter

                PlainText {
                    text: "Hmatník"
                    font: Theme.headline
                    Accessible.role: Accessible.Heading
                }
                PlainText {
                    width: parent.width
                    text: root.tips.header
                    font: Theme.subheadline
                    color: Theme.textSecondary
                    elide: Text.ElideRight
                    maximumLineCount: 1
                }
            }
        }

        Rectangle {
            x: 12
            width: parent.width - 24
            height: 1
            color: Theme.divider
            Accessible.ignored: true
        }

        Column {
            x: 8
            width: parent.width - 16
            topPadding: 7
            bottomPadding: 7
            spacing: 1
            Accessible.role: Accessible.List
            Accessible.name: root.tips.header

            Repeater {
                model: root.tips.tips

                TipRow {
                    width: parent?.width ?? 0
                }
            }
        }

        Rectangle {
            x: 12
            width: parent.width - 24
            height: 1
            color: Theme.divider
            Accessible.ignored: true
        }

        Item {
            width: parent.width
            height: Math.round(46 * Theme.textScale)

            ProminentButton {
                anchors.verticalCenter: parent.verticalCenter
                x: 12
                width: Math.min(implicitWidth, parent.width - quit.width - 36)
                implicitHeight: Math.round(24 * Theme.textScale)
                radius: 6
                rightPadding: 10
                symbol: "macwindow"
                font: Theme.font(12 * Theme.textScale, Font.Medium)
                text: root.tips.overlayCommand
                onClicked: root.shell.toggleOverlay()
            }
            PlainButton {
                id: quit

                anchors.right: parent.right
                anchors.rightMargin: 12
                anchors.verticalCenter: parent.verticalCenter
                Accessible.name: root.tips.quitCommand
                onClicked: root.shell.quit()

                contentItem: PlainText {
                    text: root.tips.quitCommand
                    font: Theme.callout
                    color: Theme.textSecondary
                    Accessible.ignored: true
                }
            }
        }

        PlainButton {
            x: 12
            topPadding: 3
            bottomPadding: 7
            Accessible.name: root.tips.libraryCommand
            onClicked: root.shell.showMainWindow()

            contentItem: IconLabel {
                symbol: "square.grid.2x2"
                symbolSize: 15
                text: root.tips.libraryCommand
                font: Theme.font(12 * Theme.textScale, Font.Medium)
                ignored: true
            }
        }

        PlainText {
            x: 12
            width: parent.width - 24
            topPadding: 3
            bottomPadding: 10
            text: root.tips.hotKeyHint
            font: Theme.font(10.5 * Theme.textScale, Font.Normal)
            color: Theme.textTertiary
            Accessible.name: root.tips.spokenHotKeyHint
        }
    }
}
