pragma ComponentBehavior: Bound

import QtQml
import Qt.labs.platform as Platform
import Hmatnik

// Hands the menus to a desktop that shows them in a place of its own.
Platform.MenuBar {
    id: root

    required property MenuBarState menuBar

    readonly property Instantiator builder: Instantiator {
        model: root.menuBar.menus
        onObjectAdded: (index, menu) => root.insertMenu(index, menu)
        onObjectRemoved: (index, menu) => root.removeMenu(menu)

        Platform.Menu {
            id: menu

            required property var modelData

            title: modelData.title

            readonly property Instantiator items: Instantiator {
                model: menu.modelData.entries
                onObjectAdded: (index, item) => menu.insertItem(index, item)
                onObjectRemoved: (index, item) => menu.removeItem(item)

                Platform.MenuItem {
                    required property var modelData

                    text: modelData.title
                    separator: modelData.separator
                    onTriggered: root.menuBar.trigger(modelData.action)
                }
            }
        }
    }
}
