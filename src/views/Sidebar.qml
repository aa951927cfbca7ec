pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Hmatnik

// Destinations on the left of the main window.
Item {
    id: root

    required property SidebarState destinations

    // Has the keyboard, in whatever part of it.
    readonly property bool active: list.activeFocus || add.activeFocus || settings.activeFocus

    signal addRequested
    signal settingsRequested

    function takeFocus() {
        list.forceActiveFocus(Qt.TabFocusReason);
    }

    width: 230

    VisualEffectView {
        anchors.fill: parent
        material: VisualEffectView.Sidebar
    }

    Column {
        id: header

        x: 10
        y: 10
        width: parent.width - 20

        Item {
            width: parent.width
            height: Math.max(54, names.height + 14)

            BrandMark {
                id: mark

                x: 10
                anchors.verticalCenter: parent.verticalCenter
            }
            Column {
                id: names

                anchors.left: mark.right
                anchors.leftMargin: 10
                anchors.verticalCenter: parent.verticalCenter
                spacing: 2

                PlainText {
                    text: "Hmatník"
                    font: Theme.headline
                }
                PlainText {
                    text: "Ovládni svůj Mac"
                    font: Theme.caption2
                    color: Theme.textSecondary
                }
            }
        }
    }

    Flickable {
        id: scroller

        anchors.top: header.bottom
        anchors.bottom: footer.top
        width: parent.width
        contentHeight: list.height
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height

        function bringIntoSight(row: Item) {
            const y = row.mapToItem(contentItem, 0, 0).y;
            contentY = Math.max(0, Math.min(y - 4, Math.max(contentY, y + row.height + 4 - height)));
        }

        FocusScope {
            id: list

            x: 10
            y: 4
            width: parent.width - 20
            height: rows.height
            activeFocusOnTab: true
            Accessible.role: Accessible.List
            Accessible.name: "Postranní panel"

            Keys.onUpPressed: root.destinations.walk(-1)
            Keys.onDownPressed: root.destinations.walk(1)
            Keys.onPressed: event => {
                switch (event.key) {
                case Qt.Key_Home:
                    root.destinations.walk(-root.destinations.rowCount);
                    break;
                case Qt.Key_End:
                    root.destinations.walk(root.destinations.rowCount);
                    break;
                case Qt.Key_Space:
                case Qt.Key_Return:
                case Qt.Key_Enter:
                    root.destinations.openWalkedRow();
                    break;
                default:
                    return;
                }
                event.accepted = true;
            }

            Column {
                id: rows

                width: parent.width
                spacing: 4

                Repeater {
                    model: root.destinations.sections

                    Column {
                        id: section

                        required property var modelData

                        width: rows.width
                        spacing: 4

                        PlainText {
                            leftPadding: 10
                            rightPadding: 10
                            topPadding: 3
                            height: Math.round(16 * Theme.textScale)
                            verticalAlignment: Text.AlignBottom
                            text: section.modelData.title
                            font: Theme.sectionHeading
                            color: Theme.textTertiary
                            Accessible.role: Accessible.Heading
                        }
                        Repeater {
                            model: section.modelData.rows

                            SidebarRow {
                                required property var modelData

                                width: rows.width
                                text: modelData.title
                                symbol: modelData.symbol
                                selected: root.destinations.selectedRow === modelData.row
                                focus: root.destinations.walkedRow === modelData.row
                                onFocusChanged: {
                                    if (focus)
                                        scroller.bringIntoSight(this);
                                }
                                onClicked: {
                                    // First, so that the row knows it was the mouse.
                                    forceActiveFocus(Qt.MouseFocusReason);
                                    root.destinations.select(modelData.row);
                                }
                            }
                        }
                    }
                }
            }
        }

        T.ScrollBar.vertical: GlassScrollBar {}
    }

    component FooterButton: PlainButton {
        id: button

        required property string symbol

        padding: 8
        Accessible.role: Accessible.Button
        Accessible.name: text

        contentItem: IconLabel {
            symbol: button.symbol
            symbolSize: 16
            symbolWidth: 16
            text: button.text
            ignored: true
        }
    }

    Column {
        id: footer

        x: 10
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 10
        spacing: 4

        FooterButton {
            id: add

            text: "Přidat vlastní"
            symbol: "plus"
            onClicked: root.addRequested()
        }
        FooterButton {
            id: settings

            text: "Nastavení"
            symbol: "gearshape"
            onClicked: root.settingsRequested()
        }
    }
}
