import QtQuick
import Hmatnik

// One shortcut of the library.
Item {
    id: root

    required property cardData card
    // Drawn when the card itself has the keyboard.
    property bool current: false
    property bool starInTabOrder: false

    readonly property alias starFocused: star.activeFocus

    signal toggleFavorite
    // Shift+Tab on the star: back to the card itself.
    signal starLeft

    implicitHeight: Math.max(145, content.implicitHeight + 32)
    scale: hover.hovered ? 1.012 : 1
    Accessible.role: Accessible.ListItem
    Accessible.name: card.title
    Accessible.description: card.spoken
    Accessible.focusable: true
    Accessible.focused: current

    Behavior on scale {
        enabled: !Theme.reducedMotion
        SpringAnimation {
            spring: Motion.spring(0.5, 0.85)
            damping: Motion.damping(0.5, 0.85)
            epsilon: 0.0002
        }
    }

    HoverHandler {
        id: hover
    }

    GlassSurface {
        anchors.fill: parent
    }

    Column {
        id: content

        x: 16
        y: 16
        width: parent.width - 32
        spacing: 12

        Item {
            width: parent.width
            height: Math.max(Math.round(17 * Theme.textScale), category.implicitHeight, star.implicitHeight)

            IconLabel {
                id: category

                anchors.verticalCenter: parent.verticalCenter
                symbol: root.card.categorySymbol
                spacing: 5
                symbolSize: 13
                text: root.card.categoryName
                font: Theme.caption
                color: Theme.textSecondary
                maximumTextWidth: parent.width - star.width - 13 * Theme.textScale - 19
                ignored: true
            }

            PlainButton {
                id: star

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                focusPolicy: root.starInTabOrder || activeFocus ? Qt.TabFocus : Qt.NoFocus
                checkable: true
                checked: root.card.favorite
                Accessible.name: "Oblíbené"
                onClicked: root.toggleFavorite()
                Keys.onBacktabPressed: {
                    star.focus = false;
                    root.starLeft();
                }
                // Otherwise the grid, a focus scope, would hand the next focus to the star.
                onActiveFocusChanged: {
                    if (!star.activeFocus)
                        star.focus = false;
                }

                // Yellow alone would be too faint on white, so the star has a contour.
                contentItem: Symbol {
                    name: root.card.favorite ? "star.fill" : "star"
                    size: 16
                    color: root.card.favorite ? Theme.yellow : Theme.textSecondary

                    Symbol {
                        visible: root.card.favorite
                        name: "star"
                        size: 16
                        color: Theme.yellowEdge
                    }
                }
            }
        }

        PlainText {
            width: parent.width
            text: root.card.title
            font: Theme.headline
            lineHeightMode: Text.FixedHeight
            lineHeight: Math.round(17 * Theme.textScale)
            wrapMode: Text.Wrap
            maximumLineCount: 3
            elide: Text.ElideRight
            Accessible.ignored: true
        }

        PlainText {
            width: parent.width
            text: root.card.detail
            font: Theme.caption
            color: Theme.textSecondary
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            Accessible.ignored: true
        }

        KeyCaps {
            width: parent.width
            keys: root.card.keys
            maximumCapWidth: content.width
        }
    }

    FocusRing {
        radius: 16
        visible: root.current
    }
}
