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
    required property SaveNoticeState saveNotice

    // Takes the answers of the quiz, while that is the screen.
    readonly property Item quizField: (detail.item as PracticeView)?.field ?? null

    function focusSearch(reason: int) {
        topBar.focusSearch(reason);
    }

    // Sidebar, top bar, screen, and round again.
    function focusNextArea(step: int) {
        const areas = 3;
        const now = sidebarColumn.active ? 0 : topBar.activeFocus ? 1 : 2;
        switch ((now + step + areas) % areas) {
        case 0:
            sidebarColumn.takeFocus();
            break;
        case 1:
            topBar.focusSearch(Qt.TabFocusReason);
            break;
        case 2:
            unsaved.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason);
            break;
        }
    }

    // What has the keyboard again when a sheet is closed over it: the quiz's field, which a click on
    // the sidebar has taken it from, otherwise who had it.
    function heirOfSheet(giver: Item): Item {
        const nobody = !giver || giver === root || giver === detail;
        return quizField && (nobody || sidebarColumn.active) ? quizField : giver;
    }

    // Scrolls the screen by a key that nobody else has wanted; false if it does not scroll.
    function scrollByKey(key: int): bool {
        const area = detail.item as ScrollingScreen ?? (detail.item as LibraryView)?.scroller ?? (detail.item as VisualKeyboardView)?.scroller;
        if (!area || !area.visible || !area.interactive)
            return false;
        const top = area.originY - area.topMargin;
        const bottom = Math.max(top, area.originY + area.contentHeight + area.bottomMargin - area.height);
        // A little of what was seen stays in sight.
        const page = Math.max(1, area.height - 40);
        switch (key) {
        case Qt.Key_PageUp:
            area.contentY = Math.max(top, area.contentY - page);
            return true;
        case Qt.Key_PageDown:
            area.contentY = Math.min(bottom, area.contentY + page);
            return true;
        case Qt.Key_Home:
            area.contentY = top;
            return true;
        case Qt.Key_End:
            area.contentY = bottom;
            return true;
        default:
            return false;
        }
    }

    Keys.onPressed: event => event.accepted = (event.modifiers & ~Qt.KeypadModifier) === 0 && scrollByKey(event.key)

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
            searchOutcome: root.sidebar.screen === SidebarState.Library ? root.library.outcome : ""
        }

        Loader {
            id: unsaved

            readonly property bool wanted: root.saveNotice.shown

            function follow() {
                if (wanted)
                    setSource("SaveNotice.qml", {
                        notice: root.saveNotice
                    });
                else
                    setSource("");
            }

            anchors.top: topBar.bottom
            x: 22
            width: parent.width - 44
            // Said here, because a loader that was emptied stays as high as what it showed.
            height: wanted ? implicitHeight : 0
            onWantedChanged: follow()
            Component.onCompleted: follow()
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

            anchors.top: unsaved.bottom
            anchors.topMargin: unsaved.wanted && wanted ? 12 : 0
            x: 22
            width: parent.width - 44
            height: wanted ? implicitHeight : 0
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
                    setSource("StickerView.qml", {
                        model: root.model
                    });
                    break;
                case SidebarState.FirstAid:
                    setSource("FirstAidView.qml", {
                        model: root.model
                    });
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
            anchors.topMargin: notice.wanted || unsaved.wanted ? 12 : 0
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
