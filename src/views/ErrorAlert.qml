import QtQuick
import Hmatnik

// Tells of a failure over a sheet; has the keyboard until it is closed.
FocusScope {
    id: root

    required property string title
    required property string message

    signal closed

    anchors.fill: parent
    focus: true
    Component.onCompleted: button.forceActiveFocus(Qt.OtherFocusReason)

    Keys.onEscapePressed: event => {
        // A key that is still down from before.
        if (!event.isAutoRepeat)
            closed();
    }

    ReturnShortcut {
        onActivated: root.closed()
    }

    Rectangle {
        anchors.fill: parent
        radius: 12
        color: Theme.scrim
        Accessible.ignored: true

        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.AllButtons
            hoverEnabled: true
            onWheel: wheel => wheel.accepted = true
            Accessible.ignored: true
        }
    }

    Surface {
        anchors.centerIn: parent
        width: Math.round(320 * Theme.textScale)
        height: column.height + 40
        radius: 12
        fill: Theme.sheetBackground
        stroke: Theme.divider
        edgeShadow: Theme.edgeShadow
        wideShadow: Theme.sheetShadow
        wideShadowBlur: 20
        wideShadowOffset: 14
        Accessible.role: Accessible.AlertMessage
        Accessible.name: root.title
        Accessible.description: root.message

        Column {
            id: column

            x: 20
            y: 20
            width: parent.width - 40
            spacing: 8

            Symbol {
                width: parent.width
                name: "exclamationmark.triangle.fill"
                size: 34
                color: Theme.orangeSymbol
            }
            PlainText {
                width: parent.width
                text: root.title
                font: Theme.headline
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                Accessible.role: Accessible.Heading
            }
            // The system's own words, which may be long.
            PlainText {
                width: parent.width
                text: root.message
                font: Theme.caption
                color: Theme.textSecondary
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                maximumLineCount: 12
                elide: Text.ElideRight
            }
            Item {
                width: parent.width
                height: button.height + 6

                SheetButton {
                    id: button

                    anchors.bottom: parent.bottom
                    width: parent.width
                    text: "OK"
                    prominent: true
                    onClicked: root.closed()
                }
            }
        }
    }
}
