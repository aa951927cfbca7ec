import QtQuick
import Hmatnik

// The frame of a modal sheet: fades what it covers, keeps pointer and keyboard to itself. Who shows
// a sheet disables what lies behind it, which also keeps Tab inside.
FocusScope {
    id: root

    required property string title
    required property real sheetWidth
    required property real sheetHeight
    // Has the keyboard at first.
    property Item firstField: null
    // While something lies over the sheet, Return is not its own.
    property bool covered: false
    default property alias contents: panel.data

    // Escape.
    signal cancelled
    // Return, wherever in the sheet.
    signal confirmed
    // After leave(), once nothing of the sheet is to be seen.
    signal gone

    function appear(focusReason: int) {
        if (firstField)
            firstField.forceActiveFocus(focusReason);
        else
            forceActiveFocus(focusReason);
        presence = 1;
    }

    function leave() {
        enabled = false;
        presence = 0;
        if (!fade.running)
            gone();
    }

    property real presence: 0

    anchors.fill: parent
    focus: true

    Behavior on presence {
        enabled: !Theme.reducedMotion
        NumberAnimation {
            id: fade

            duration: 140
            easing.type: Easing.OutCubic
            onRunningChanged: {
                if (!running && !root.enabled)
                    root.gone();
            }
        }
    }

    Keys.onEscapePressed: cancelled()

    ReturnShortcut {
        enabled: root.enabled && !root.covered
        onActivated: root.confirmed()
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.scrim
        opacity: root.presence
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
        anchors.fill: panel
        radius: 12
        fill: Theme.sheetBackground
        stroke: "transparent"
        edgeShadow: Theme.edgeShadow
        wideShadow: Theme.sheetShadow
        wideShadowBlur: 30
        wideShadowOffset: 24
        opacity: root.presence
        scale: panel.scale
    }

    Item {
        id: panel

        anchors.centerIn: parent
        // Larger texts need a larger sheet, as far as the window holds one.
        width: Math.min(root.sheetWidth * Theme.textScale, root.width - 20)
        height: Math.min(root.sheetHeight * Theme.textScale, root.height - 20)
        opacity: root.presence
        scale: 0.97 + 0.03 * root.presence
        Accessible.role: Accessible.Dialog
        Accessible.name: root.title
    }
}
