pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Hmatnik

// One row of a form: a label and a field for a line of text.
FocusScope {
    id: root

    required property string label
    property string placeholder: ""
    // The placeholder as it is read out, where that differs.
    property string spokenPlaceholder: placeholder
    property alias text: field.text
    property real fieldX: 162 * Theme.textScale

    implicitHeight: Math.round(24 * Theme.textScale)

    PlainText {
        width: root.fieldX - 8
        height: parent.height
        text: root.label
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    T.TextField {
        id: field

        x: root.fieldX
        width: parent.width - x
        height: parent.height
        focus: true
        leftPadding: 8
        rightPadding: 8
        clip: true
        font: Theme.body
        color: Theme.textPrimary
        // The menu bar takes the keyboard for a moment; its commands act on what was selected before.
        persistentSelection: true
        selectionColor: Theme.accentFill
        selectedTextColor: "white"
        selectByMouse: true
        verticalAlignment: Text.AlignVCenter
        // Nothing that a person pastes may be cut off silently.
        maximumLength: 2147483647
        Accessible.role: Accessible.EditableText
        Accessible.name: root.label
        // The control makes this its description for assistive technologies, and shows it nowhere.
        placeholderText: root.spokenPlaceholder

        background: Surface {
            radius: 6
            fill: Theme.keyCapFill
            stroke: Theme.keyCapBorder
            edgeShadow: "transparent"
            wideShadow: "transparent"
        }
        cursorDelegate: Rectangle {
            width: 1.5
            color: Theme.accent
            visible: field.activeFocus
        }

        Placeholder {
            field: field
            text: root.placeholder
            color: Theme.textTertiary
        }
    }

    FieldRing {
        anchors.fill: field
        visible: field.activeFocus
    }
}
