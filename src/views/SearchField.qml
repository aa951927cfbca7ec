pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Hmatnik

// The search box of the top bar.
T.Control {
    id: root

    property alias text: field.text
    // Told to assistive technologies while the person types.
    property string outcome: ""

    signal edited(string text)

    function takeFocus(reason: int) {
        field.forceActiveFocus(reason);
    }

    implicitWidth: 210
    implicitHeight: Math.round(32 * Theme.textScale)
    focusPolicy: Qt.NoFocus

    background: GlassSurface {}

    Symbol {
        id: glass

        x: 10
        anchors.verticalCenter: parent.verticalCenter
        width: 16 * Theme.textScale
        name: "magnifyingglass"
        size: 16
        color: Theme.textSecondary
    }

    T.TextField {
        id: field

        // It remembers every key, to take it back, for as long as nobody else changes the text.
        readonly property int mostRemembered: 1000
        property int remembered: 0

        function forget() {
            if (field.preeditText.length > 0)
                return;
            const position = field.cursorPosition;
            // The only way to make it forget that leaves the text as it is.
            field.maximumLength = field.maximumLength === 32767 ? 32766 : 32767;
            field.cursorPosition = position;
            field.remembered = 0;
        }

        anchors.left: glass.right
        anchors.leftMargin: 6
        anchors.right: clearButton.visible ? clearButton.left : parent.right
        anchors.rightMargin: clearButton.visible ? 4 : 10
        anchors.verticalCenter: parent.verticalCenter
        height: Math.round(20 * Theme.textScale)
        focus: true
        clip: true
        font: Theme.body
        color: Theme.textPrimary
        // The menu bar takes the keyboard for a moment; its commands act on what was selected before.
        persistentSelection: true
        selectionColor: Theme.accentFill
        selectedTextColor: "white"
        selectByMouse: true
        verticalAlignment: Text.AlignVCenter
        // The control makes this its description for assistive technologies, and shows it nowhere.
        placeholderText: root.outcome
        Accessible.role: Accessible.EditableText
        Accessible.name: placeholder.text
        Accessible.searchEdit: true
        // Assistive technologies put their text into the field without editing it.
        onTextChanged: root.edited(text)
        onTextEdited: {
            field.remembered += 1;
            if (field.remembered > field.mostRemembered)
                forgetting.start();
        }
        Keys.onEscapePressed: event => {
            if (text.length === 0) {
                event.accepted = false;
                return;
            }
            root.edited("");
        }

        // Not while it still works on the key.
        Timer {
            id: forgetting

            interval: 0
            onTriggered: field.forget()
        }

        cursorDelegate: Rectangle {
            width: 1.5
            color: Theme.accent
            visible: field.activeFocus
        }

        Placeholder {
            id: placeholder

            field: field
            text: "Hledat…"
            color: Theme.textSecondary
        }
    }

    PlainButton {
        id: clearButton

        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        visible: field.text.length > 0
        Accessible.role: Accessible.Button
        Accessible.name: "Vymazat hledání"
        onClicked: {
            root.edited("");
            field.forceActiveFocus(Qt.OtherFocusReason);
        }

        contentItem: Symbol {
            name: "xmark.circle.fill"
            size: 15
            color: Theme.textSecondary
        }
    }

    FocusRing {
        radius: 16
        visible: field.activeFocus && (field.focusReason === Qt.TabFocusReason || field.focusReason === Qt.BacktabFocusReason)
    }
}
