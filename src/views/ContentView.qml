import QtQuick
import Hmatnik

// Content of the main window: sidebar, divider, top bar and the screen chosen.
FocusScope {
    id: root

    required property AppModel model
    required property ShellBridge shell
    required property SidebarState sidebar
    required property LibraryState library
    required property FilterBarState filterBar
    required property SheetState sheets
    required property UpdateChecker updateChecker
    required property UpdateBannerState banner

    function focusSearch(reason: int) {
        topBar.focusSearch(reason);
    }

    AppBackdrop {
        anchors.fill: parent
    }

    Sidebar {
        id: sidebarColumn

        height: parent.height
        destinations: root.sidebar
        onAddRequested: root.sheets.openEditor()
        onSettingsRequested: root.sheets.openSettings()
    }

    Rectangle {
        id: divider

        anchors.left: sidebarColumn.right
        width: 1
        height: parent.height
        color: Theme.divider
        opacity: 0.35
        Accessible.ignored: true
    }

    Item {
        anchors.left: divider.right
        anchors.right: parent.right
        height: parent.height

        TopBar {
            id: topBar

            width: parent.width
            model: root.model
            shell: root.shell
            title: root.sidebar.pageTitle
        }

        Loader {
            id: notice

            readonly property bool wanted: root.updateChecker.isUpdateAvailable

            function follow() {
                if (wanted)
                    setSource("UpdateBanner.qml", {
                        banner: root.banner
                    });
                else
                    setSource("");
            }

            anchors.top: topBar.bottom
            x: 22
            width: parent.width - 44
            onWantedChanged: follow()
            Component.onCompleted: follow()
        }

        Loader {
            id: detail

            // Which file shows a screen, and what it needs beyond the model.
            function showScreen() {
                switch (root.sidebar.screen) {
                case SidebarState.Library:
                    setSource("LibraryView.qml", {
                        model: root.model,
                        library: root.library,
                        filterBar: root.filterBar
                    });
                    break;
                case SidebarState.Keyboard:
                    setSource("VisualKeyboardView.qml", {
                        model: root.model,
                        filterBar: root.filterBar
                    });
                    break;
                case SidebarState.Sticker:
                    setSource("StickerView.qml");
                    break;
                case SidebarState.FirstAid:
                    setSource("FirstAidView.qml");
                    break;
                case SidebarState.Daily:
                    setSource("DailyLearningView.qml", {
                        model: root.model
                    });
                    break;
                case SidebarState.Practice:
                    setSource("PracticeView.qml", {
                        model: root.model
                    });
                    break;
                }
            }

            anchors.top: notice.bottom
            anchors.topMargin: notice.wanted ? 12 : 0
            anchors.bottom: parent.bottom
            width: parent.width
            Component.onCompleted: showScreen()

            Connections {
                target: root.sidebar
                function onScreenChanged() {
                    detail.showScreen();
                }
            }
        }
    }
}
