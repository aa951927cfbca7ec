import QtQuick
import QtQuick.Templates as T
import Hmatnik

// The sheet of settings.
Sheet {
    id: root

    required property AppModel model
    required property SheetState sheets

    title: "Nastavení"
    sheetWidth: 540
    sheetHeight: 480
    firstField: launchSwitch
    covered: settings.alertShown
    onCancelled: sheets.dismiss()
    onConfirmed: sheets.dismiss()

    SettingsState {
        id: settings

        model: root.model
        onAlertShownChanged: {
            if (alertShown)
                alert.setSource("ErrorAlert.qml", {
                    title: "Nastavení se nepodařilo změnit",
                    message: alertMessage
                });
            else
                alert.setSource("");
        }
    }

    AccessibleCurtain {
        anchors.fill: parent
        drawn: settings.alertShown
        Accessible.role: Accessible.Grouping

        FocusScope {
            id: contents

            readonly property real padding: 22

            anchors.fill: parent
            anchors.margins: padding
            focus: true
            enabled: !settings.alertShown

            PlainText {
                id: heading

                text: root.title
                font: Theme.titleBold
                Accessible.role: Accessible.Heading
            }
            SheetButton {
                id: doneButton

                anchors.right: parent.right
                anchors.verticalCenter: heading.verticalCenter
                text: "Hotovo"
                prominent: true
                onClicked: root.sheets.dismiss()
            }

            Flickable {
                id: body

                readonly property Item focused: root.Window.activeFocusItem

                // What has the keyboard comes into sight with a little of its surroundings.
                function reveal(item: Item) {
                    if (!item || !contents.activeFocus)
                        return;
                    const margin = 8;
                    // Of the list not only the row: it scrolls by itself.
                    const shown = list.activeFocus ? list : item;
                    const top = shown.mapToItem(groups, 0, 0).y;
                    const upmost = Math.max(0, contentHeight - height);
                    const visibleTop = Math.min(contentY, top - margin);
                    contentY = Math.max(0, Math.min(upmost, Math.max(visibleTop, top + shown.height + margin - height)));
                }

                anchors.top: heading.bottom
                anchors.topMargin: 18
                anchors.bottom: parent.bottom
                // What goes on does so to the sheet's edge.
                anchors.bottomMargin: -contents.padding
                width: parent.width
                contentHeight: groups.height + contents.padding
                boundsBehavior: Flickable.StopAtBounds
                interactive: contentHeight > height
                clip: interactive
                onFocusedChanged: reveal(focused)

                T.ScrollBar.vertical: GlassScrollBar {
                    // Beside what is scrolled, so that it covers neither that nor the list's bar.
                    parent: contents
                    anchors.left: body.right
                    anchors.leftMargin: 6
                    anchors.top: body.top
                    anchors.bottom: parent.bottom
                    steady: true
                }

                Item {
                    id: groups

                    readonly property real upper: own.visible ? own.y + own.height : deletion.visible ? deletion.y + deletion.height : privacy.y + privacy.height

                    width: parent.width
                    height: keyboard.visible ? keyboard.y + keyboard.height : upper

                    SettingsGroup {
                        id: behaviour

                        width: parent.width
                        title: "Chování"
                        contentHeight: switches.height + 14

                        Column {
                            id: switches

                            x: 14
                            y: 7
                            width: parent.width - 28

                            LabeledSwitch {
                                id: launchSwitch

                                width: parent.width
                                text: "Spouštět Hmatník po přihlášení"
                                on: settings.launchAtLogin
                                onFlipped: on => settings.setLaunchAtLogin(on)
                            }
                            LabeledSwitch {
                                width: parent.width
                                text: "Chytré návrhy podle použitých položek menu"
                                on: settings.smartSuggestions
                                onFlipped: on => settings.setSmartSuggestions(on)
                            }
                            LabeledSwitch {
                                width: parent.width
                                text: "Učební režim – zobrazovat tip už při prvním použití myší"
                                on: settings.learningMode
                                onFlipped: on => settings.setLearningMode(on)
                            }
                            LabeledSwitch {
                                width: parent.width
                                visible: settings.tipsSwitchShown
                                text: "Tipy k návrhům jako oznámení plochy"
                                on: settings.tips
                                onFlipped: on => settings.setTips(on)
                            }
                        }
                    }

                    SettingsGroup {
                        id: privacy

                        anchors.top: behaviour.bottom
                        anchors.topMargin: 18
                        width: parent.width
                        title: "Soukromí a oprávnění"
                        contentHeight: permission.height + 24

                        Column {
                            id: permission

                            x: 14
                            y: 12
                            width: parent.width - 28
                            spacing: 8

                            PlainText {
                                width: parent.width
                                text: "Chytré návrhy potřebují oprávnění Zpřístupnění, aby poznaly kliknutí na položku menu. Obsah dokumentů se nečte a žádná data neopouštějí Mac."
                                font: Theme.caption
                                color: Theme.textSecondary
                                wrapMode: Text.Wrap
                            }
                            SheetButton {
                                text: "Povolit ve Zpřístupnění…"
                                onClicked: settings.requestAccessibility()
                            }
                        }
                    }

                    SettingsGroup {
                        id: own

                        anchors.top: privacy.bottom
                        anchors.topMargin: 18
                        width: parent.width
                        visible: settings.customShortcuts.count > 0
                        title: "Vlastní zkratky"
                        // The list scrolls in what is left of the sheet's fixed frame, but keeps a few
                        // rows in sight.
                        contentHeight: Math.min(list.fullHeight + 8, Math.max(list.leastHeight + 8, body.height - contents.padding - y - headingHeight))

                        CustomShortcutList {
                            id: list

                            x: 8
                            y: 4
                            width: parent.width - 12
                            height: parent.height - 8
                            shortcuts: settings.customShortcuts
                            onDeleteRequested: row => settings.deleteCustom(row)
                            onDeleteImportedRequested: row => {
                                const hadFocus = activeFocus;
                                settings.deleteImported(row);
                                if (hadFocus)
                                    undo.forceActiveFocus(Qt.OtherFocusReason);
                            }
                            onEmptied: doneButton.forceActiveFocus(Qt.OtherFocusReason)
                        }
                    }

                    // Beside the title of the group, and alone when that has gone with its last row.
                    Item {
                        id: deletion

                        anchors.left: parent.left
                        anchors.leftMargin: Math.round(120 * Theme.textScale)
                        anchors.right: parent.right
                        anchors.verticalCenter: own.top
                        anchors.verticalCenterOffset: own.headingHeight / 2 - 3
                        height: undo.height
                        visible: settings.deletionText.length > 0
                        Accessible.role: Accessible.AlertMessage
                        Accessible.name: settings.deletionText

                        Announcer {
                            text: settings.deletionText
                            source: deletion
                        }
                        PlainText {
                            anchors.left: parent.left
                            anchors.right: undo.left
                            anchors.rightMargin: 8
                            anchors.verticalCenter: parent.verticalCenter
                            text: settings.deletionText
                            font: Theme.caption
                            color: Theme.textSecondary
                            horizontalAlignment: Text.AlignRight
                            elide: Text.ElideMiddle
                            maximumLineCount: 1
                            Accessible.ignored: true
                        }
                        SheetButton {
                            id: undo

                            anchors.right: parent.right
                            small: true
                            text: "Vrátit"
                            onClicked: {
                                const hadFocus = activeFocus;
                                settings.undoDeletion();
                                if (hadFocus)
                                    list.forceActiveFocus(Qt.OtherFocusReason);
                            }
                        }
                    }

                    SettingsGroup {
                        id: keyboard

                        y: groups.upper + 18
                        width: parent.width
                        visible: settings.hasKeyboardChoices
                        title: "Klávesnice"
                        contentHeight: choices.height + 24

                        Column {
                            id: choices

                            x: 14
                            y: 12
                            width: parent.width - 28
                            spacing: 8

                            FormPicker {
                                width: parent.width
                                label: "Názvy kláves"
                                choices: settings.keyStyles
                                spokenChoices: settings.spokenKeyStyles
                                chosen: settings.keyStyle
                                onPicked: choice => settings.setKeyStyle(choice)
                            }
                            FormPicker {
                                width: parent.width
                                label: "Knihovna"
                                choices: settings.libraries
                                chosen: settings.library
                                onPicked: choice => settings.setLibrary(choice)
                            }
                        }
                    }
                }
            }
        }
    }

    Loader {
        id: alert

        anchors.fill: parent

        Connections {
            target: alert.item as ErrorAlert
            function onClosed() {
                settings.closeAlert();
                launchSwitch.forceActiveFocus(Qt.OtherFocusReason);
            }
        }
    }
}
