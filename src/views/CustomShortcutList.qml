pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Hmatnik

// A person's own shortcuts with a button each to delete them, and one for all that were imported
// from the same menu or from the desktop. Only the rows in sight exist.
ListView {
    id: root

    required property CustomShortcutRows shortcuts
    readonly property real rowHeight: Math.round(32 * Theme.textScale)
    readonly property real headingHeight: Math.round(30 * Theme.textScale)
    readonly property real fullHeight: count * rowHeight + shortcuts.headings * headingHeight
    // Less leaves too little to find one's way.
    readonly property real leastHeight: 3 * rowHeight + (shortcuts.headings > 0 ? headingHeight : 0)
    // Of the group that the list lies in.
    readonly property color ground: Qt.tint(Theme.sheetBackground, Theme.well)
    // Whose button the keyboard reaches: that of the import which the current row belongs to.
    readonly property string currentHeading: count > 0 ? shortcuts.heading(currentIndex) : ""

    signal deleteRequested(int row)
    // All that were imported from where the row was.
    signal deleteImportedRequested(int row)
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
            if (event.isAutoRepeat)
                break;
            if (event.modifiers & Qt.ShiftModifier && shortcuts.isImported(currentIndex))
                deleteImportedRequested(currentIndex);
            else
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
        required property string spokenKeys
        required property string heading
        required property bool imported
        required property bool startsRun
        readonly property bool current: ListView.isCurrentItem
        // What keys may take from the title.
        readonly property real capsRoom: 250

        width: ListView.view.width
        height: root.rowHeight + (startsRun ? root.headingHeight : 0)
        // A row kept for reuse is only culled; assistive technologies would still find it. And since
        // Qt 6.8 such a row is passed over by them, also when it has come back.
        ListView.onPooled: visible = false
        ListView.onReused: {
            visible = true;
            Accessible.ignored = false;
        }
        Accessible.role: Accessible.ListItem
        Accessible.name: title
        Accessible.description: spokenKeys
        Accessible.focusable: true
        Accessible.focused: current && root.activeFocus

        Item {
            width: parent.width
            height: root.headingHeight
            visible: row.startsRun

            PlainText {
                anchors.left: parent.left
                anchors.leftMargin: 6
                anchors.right: deleteAll.left
                anchors.rightMargin: 12
                anchors.verticalCenter: parent.verticalCenter
                text: row.heading
                font: Theme.caption
                color: Theme.textSecondary
                elide: Text.ElideRight
                maximumLineCount: 1
                Accessible.role: Accessible.Heading
            }
            SheetButton {
                id: deleteAll

                anchors.right: parent.right
                anchors.rightMargin: 14
                anchors.verticalCenter: parent.verticalCenter
                visible: row.imported
                small: true
                text: "Smazat všechny"
                focusPolicy: row.heading === root.currentHeading ? Qt.TabFocus : Qt.NoFocus
                Accessible.description: row.heading
                onClicked: root.deleteImportedRequested(row.index)
            }
        }

        Item {
            anchors.bottom: parent.bottom
            width: parent.width
            height: root.rowHeight

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
                    maximumCaps: 6
                }
            }

            PlainButton {
                id: trash

                anchors.right: parent.right
                anchors.rightMargin: 10
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
    }

    T.ScrollBar.vertical: GlassScrollBar {
        steady: true
    }

    // Rows fade out where more follow.
    Rectangle {
        parent: root
        anchors.bottom: parent.bottom
        width: parent.width
        height: root.rowHeight
        visible: !root.atYEnd
        gradient: Gradient {
            GradientStop {
                position: 0
                color: Theme.faded(root.ground, 0)
            }
            GradientStop {
                position: 1
                color: Theme.faded(root.ground, 0.85)
            }
        }
        Accessible.ignored: true
    }
}
