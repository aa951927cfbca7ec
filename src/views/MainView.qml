pragma ComponentBehavior: Bound

import QtQuick
import Hmatnik

// Root of the main window: the menu bar, while it shows, and the content under it.
Item {
    id: root

    required property AppModel model
    required property ShellBridge shell
    required property SidebarState sidebar
    required property LibraryState library
    required property FilterBarState filterBar
    required property MenuBarState menuBar
    required property SheetState sheets
    required property UpdateChecker updateChecker
    required property UpdateBannerState banner
    required property SaveNoticeState saveNotice

    Component.onCompleted: content.focusSearch(Qt.OtherFocusReason)

    Loader {
        id: bar

        width: parent.width
        height: root.menuBar.shown ? Math.round(30 * Theme.textScale) : 0

        // Who had the keyboard before the menu bar took it.
        property Item focusBefore: null

        Connections {
            target: root.menuBar
            function onShownChanged() {
                if (root.menuBar.shown) {
                    bar.focusBefore = root.Window.activeFocusItem;
                    bar.setSource("AppMenuBar.qml", {
                        menuBar: root.menuBar
                    });
                    return;
                }
                bar.setSource("");
                if (bar.focusBefore)
                    bar.focusBefore.forceActiveFocus(Qt.OtherFocusReason);
            }
        }
    }

    AccessibleCurtain {
        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        drawn: presenter.open
        // What makes the item known to assistive technologies at all.
        Accessible.role: Accessible.Grouping

        ContentView {
            id: content

            anchors.fill: parent
            focus: true
            enabled: !presenter.open
            model: root.model
            shell: root.shell
            sidebar: root.sidebar
            library: root.library
            filterBar: root.filterBar
            sheets: root.sheets
            updateChecker: root.updateChecker
            banner: root.banner
            saveNotice: root.saveNotice
        }
    }

    SheetPresenter {
        id: presenter

        anchors.fill: parent
        model: root.model
        sheets: root.sheets
        content: content
    }

    Shortcut {
        sequence: "Ctrl+F"
        enabled: !presenter.open
        onActivated: content.focusSearch(Qt.ShortcutFocusReason)
    }

    Shortcut {
        sequence: "F6"
        enabled: !presenter.open
        onActivated: content.focusNextArea(1)
    }
    Shortcut {
        sequence: "Shift+F6"
        enabled: !presenter.open
        onActivated: content.focusNextArea(-1)
    }

    Instantiator {
        model: root.menuBar.keyEquivalents

        Shortcut {
            required property var modelData

            sequence: modelData.sequence
            onActivated: root.menuBar.trigger(modelData.action)
        }
    }

    Loader {
        id: exportedBar

        Component.onCompleted: {
            if (root.menuBar.exported)
                setSource("ExportedMenuBar.qml", {
                    menuBar: root.menuBar,
                    host: root
                });
        }
    }

    Component {
        id: aboutPanel

        AboutPanel {
            version: root.shell.version
        }
    }

    Connections {
        property AboutPanel panel: null

        target: root.menuBar
        function onAboutRequested() {
            if (!panel)
                panel = aboutPanel.createObject(root) as AboutPanel;
            panel.present();
        }
    }
}
