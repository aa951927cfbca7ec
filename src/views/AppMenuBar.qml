pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Hmatnik

// The menu bar inside the window, for desktops without a place of their own for menus.
T.MenuBar {
    id: root

    required property MenuBarState menuBar

    implicitWidth: parent ? parent.width : 0
    implicitHeight: Math.round(30 * Theme.textScale)
    contentWidth: width
    focus: true

    background: Rectangle {
        color: Theme.sidebar
        Accessible.ignored: true
    }

    contentItem: Row {
        Repeater {
            model: root.contentModel
        }
    }

    delegate: T.MenuBarItem {
        id: barItem

        readonly property bool lit: highlighted || activeFocus

        implicitWidth: implicitContentWidth + 24
        implicitHeight: Math.round(30 * Theme.textScale)
        Accessible.name: text
        Keys.onDownPressed: triggered()
        Keys.onReturnPressed: triggered()
        Keys.onEnterPressed: triggered()
        Keys.onSpacePressed: triggered()
        Keys.onLeftPressed: root.walk(this, -1)
        Keys.onRightPressed: root.walk(this, 1)

        contentItem: PlainText {
            text: barItem.text
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            color: barItem.lit ? "white" : Theme.textPrimary
            Accessible.ignored: true
        }
        background: Rectangle {
            color: barItem.lit ? Theme.accentFill : "transparent"
            Accessible.ignored: true
        }
    }

    Keys.onEscapePressed: menuBar.shown = false

    // The bar goes when the person turns to something else.
    onActiveFocusChanged: afterwards.restart()

    // Focus passes through nobody on its way to a menu.
    Timer {
        id: afterwards

        interval: 0
        onTriggered: {
            for (let i = 0; i < root.count; ++i) {
                if (root.menuAt(i).visible)
                    return;
            }
            if (!root.activeFocus)
                root.menuBar.shown = false;
        }
    }

    function walk(from: Item, step: int) {
        for (let i = 0; i < count; ++i) {
            if (itemAt(i) === from) {
                itemAt((i + step + count) % count).forceActiveFocus(Qt.TabFocusReason);
                return;
            }
        }
    }

    Component {
        id: menuComponent

        AppMenuPopup {
            menuBar: root.menuBar
        }
    }

    Component.onCompleted: {
        for (const definition of menuBar.menus)
            addMenu(menuComponent.createObject(root, {
                title: definition.title,
                entries: definition.entries
            }));
        for (let i = 0; i < count; ++i) {
            const item = itemAt(i);
            menuAt(i).closed.connect(() => item.forceActiveFocus(Qt.TabFocusReason));
        }
        const first = itemAt(0);
        if (first)
            first.forceActiveFocus(Qt.TabFocusReason);
    }
}
