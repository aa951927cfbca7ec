pragma ComponentBehavior: Bound

import QtQuick
import Qt.labs.platform as Platform
import Hmatnik

// Hands the menus to a desktop that shows them in a place of its own.
Platform.MenuBar {
    id: root

    required property MenuBarState menuBar
    // Stands in the window whose menus they are.
    required property Item host

    window: host.Window.window

    readonly property Component menuComponent: Platform.Menu {}
    readonly property Component commandComponent: Platform.MenuItem {
        required property var entry

        text: entry.title
        separator: entry.separator
        enabled: !root.menuBar.unusable.includes(entry.action)
        onTriggered: root.menuBar.trigger(entry.action)
    }

    // A menu has to belong to the bar before it gets its commands: one that begins by itself is of
    // another kind, which the bar can't show.
    function build() {
        clear();
        for (const definition of menuBar.menus) {
            const menu = menuComponent.createObject(root, {
                title: definition.title
            });
            addMenu(menu);
            for (const entry of definition.entries)
                menu.addItem(commandComponent.createObject(menu, {
                    entry: entry
                }));
        }
    }

    readonly property Connections rebuilder: Connections {
        target: root.menuBar
        function onMenusChanged() {
            root.build();
        }
    }

    Component.onCompleted: build()
}
