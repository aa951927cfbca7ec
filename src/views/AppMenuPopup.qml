pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Hmatnik

// One menu of the menu bar.
T.Menu {
    id: root

    required property MenuBarState menuBar
    required property var entries

    onAboutToShow: currentIndex = 0
    implicitWidth: Math.round(240 * Theme.textScale)
    implicitHeight: contentHeight + topPadding + bottomPadding
    padding: 5
    overlap: 1

    contentItem: ListView {
        implicitHeight: contentHeight
        model: root.contentModel
        interactive: false
        currentIndex: root.currentIndex
        Accessible.ignored: true
    }

    background: Rectangle {
        radius: 8
        color: Theme.windowBackground
        border.width: 1
        border.color: Theme.divider
        Accessible.ignored: true
    }

    Component {
        id: separator

        T.MenuSeparator {
            implicitWidth: root.width - 10
            implicitHeight: 9
            contentItem: Item {
                Rectangle {
                    anchors.verticalCenter: parent.verticalCenter
                    width: parent.width
                    height: 1
                    color: Theme.divider
                    Accessible.ignored: true
                }
            }
        }
    }

    Component {
        id: command

        T.MenuItem {
            id: item

            required property var entry

            implicitWidth: root.width - 10
            implicitHeight: Math.round(26 * Theme.textScale)
            text: entry.title
            enabled: !root.menuBar.unusable.includes(entry.action)
            Accessible.name: entry.title
            onTriggered: {
                root.menuBar.shown = false;
                root.menuBar.trigger(entry.action);
            }

            contentItem: Item {
                PlainText {
                    x: 8
                    anchors.verticalCenter: parent.verticalCenter
                    text: item.entry.title
                    color: !item.enabled ? Theme.textDisabled : item.highlighted ? "white" : Theme.textPrimary
                    Accessible.ignored: true
                }
                PlainText {
                    anchors.right: parent.right
                    anchors.rightMargin: 8
                    anchors.verticalCenter: parent.verticalCenter
                    text: item.entry.sequence
                    color: item.highlighted ? "white" : Theme.textSecondary
                    Accessible.ignored: true
                }
            }
            background: Rectangle {
                radius: 5
                color: item.highlighted && item.enabled ? Theme.accentFill : "transparent"
                Accessible.ignored: true
            }
        }
    }

    // Without an owner they would go with the garbage, out of an open menu too.
    Component.onCompleted: {
        for (const entry of entries) {
            if (entry.separator)
                addItem(separator.createObject(root));
            else
                addItem(command.createObject(root, {
                    entry: entry
                }));
        }
    }
}
