pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Hmatnik

// A person's own shortcuts with a button each to delete them. Only the rows in sight exist.
ListView {
    id: root

    required property CustomShortcutRows shortcuts
    readonly property real rowHeight: Math.round(32 * Theme.textScale)

    signal deleteRequested(int row)
    // The last one is gone, and with it what had the keyboard.
    signal emptied

    // Keeps the keyboard near when the row that had it goes.
    function deleteRow(row: int) {
        const hadFocus = activeFocus;
        deleteRequested(row);
        if (!hadFocus)
            return;
        if (count > 0) {
            currentIndex = Math.min(row, count - 1);
            forceActiveFocus(Qt.OtherFocusReason);
        } else {
            emptied();
        }
    }

    model: shortcuts
    clip: true
    reuseItems: true
    cacheBuffer: 64
    boundsBehavior: Flickable.StopAtBounds
    interactive: contentHeight > height
    activeFocusOnTab: true
    highlightMoveDuration: 0
    highlightFollowsCurrentItem: true
    Accessible.role: Accessible.List
    Accessible.name: "Vlastní zkratky"

    Keys.onPressed: event => {
        const page = Math.max(1, Math.floor(height / rowHeight));
        switch (event.key) {
        case Qt.Key_Home:
            currentIndex = 0;
            break;
        case Qt.Key_End:
            currentIndex = count - 1;
            break;
        case Qt.Key_PageUp:
            currentIndex = Math.max(0, currentIndex - page);
            break;
        case Qt.Key_PageDown:
            currentIndex = Math.min(count - 1, currentIndex + page);
            break;
        case Qt.Key_Delete:
        case Qt.Key_Backspace:
            if (!event.isAutoRepeat)
                deleteRow(currentIndex);
            break;
        default:
            return;
        }
        event.accepted = true;
    }

    delegate: Item {
        id: row

        required property int index
        required property string title
        required property var keys
        readonly property bool current: ListView.isCurrentItem
        // What keys may take from the title.
        readonly property real capsRoom: 250

        width: ListView.view.width
        height: root.rowHeight
        // A row kept for reuse is only culled; assistive technologies would still find it. And since
        // Qt 6.8 such a row is passed over by them, also when it has come back.
        ListView.onPooled: visible = false
        ListView.onReused: {
            visible = true;
            Accessible.ignored = false;
        }
        Accessible.role: Accessible.ListItem
        Accessible.name: title
        Accessible.description: keys.join(" ")
        Accessible.focusable: true
        Accessible.focused: current && root.activeFocus

        PlainText {
            anchors.left: parent.left
            anchors.leftMargin: 6
            anchors.right: caps.left
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            text: row.title
            elide: Text.ElideRight
            maximumLineCount: 1
            Accessible.ignored: true
        }

        Item {
            id: caps

            anchors.right: trash.left
            anchors.rightMargin: 12
            width: Math.min(row.capsRoom, keyCaps.implicitWidth)
            height: parent.height
            clip: keyCaps.implicitWidth > width

            KeyCaps {
                id: keyCaps

                anchors.verticalCenter: parent.verticalCenter
                keys: row.keys
                compact: true
                maximumCapWidth: 120
                maximumCaps: 10
            }
        }

        PlainButton {
            id: trash

            anchors.right: parent.right
            anchors.rightMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            focusPolicy: row.current ? Qt.TabFocus : Qt.NoFocus
            Accessible.role: Accessible.Button
            Accessible.name: "Smazat"
            Accessible.description: row.title
            onClicked: root.deleteRow(row.index)

            contentItem: Symbol {
                width: 17 * Theme.textScale
                name: "trash"
                size: 17
                color: Theme.redText
            }
        }

        FocusRing {
            gap: -1
            radius: 6
            visible: row.current && root.activeFocus && !trash.activeFocus
        }
    }

    T.ScrollBar.vertical: GlassScrollBar {}
}
