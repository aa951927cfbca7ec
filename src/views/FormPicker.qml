pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Hmatnik

// One row of a form: a label and a choice of one among a few.
FocusScope {
    id: root

    required property string label
    required property var choices
    // The same for screen readers, which skip or mispronounce glyphs.
    property var spokenChoices: choices
    required property int chosen
    property real fieldX: 162 * Theme.textScale

    signal picked(int choice)

    implicitHeight: Math.round(24 * Theme.textScale)

    PlainText {
        width: root.fieldX - 8
        height: parent.height
        text: root.label
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    T.ComboBox {
        id: box

        x: root.fieldX
        width: parent.width - x
        height: parent.height
        focus: true
        leftPadding: 8
        rightPadding: 12 + 16 * Theme.textScale
        model: root.choices
        currentIndex: root.chosen
        onActivated: index => root.picked(index)
        // Open, it takes the choice with Return, which is the sheet's otherwise.
        Keys.onShortcutOverride: event => event.accepted = popup.visible && (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
        Accessible.role: Accessible.ComboBox
        Accessible.name: root.label
        Accessible.description: root.spokenChoices[currentIndex] ?? ""

        background: Surface {
            radius: 6
            fill: Theme.keyCapFill
            stroke: Theme.keyCapBorder
            edgeShadow: "transparent"
            wideShadow: "transparent"
        }
        contentItem: PlainText {
            text: box.displayText
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        indicator: Symbol {
            x: box.width - width - 7
            width: 16 * Theme.textScale
            height: box.height
            name: "chevron.up.chevron.down"
            size: 15
            color: Theme.textSecondary
        }
        delegate: T.ItemDelegate {
            id: choice

            required property int index
            required property string modelData

            width: ListView.view.width
            height: Math.round(24 * Theme.textScale)
            highlighted: box.highlightedIndex === index
            Accessible.role: Accessible.ListItem
            Accessible.name: root.spokenChoices[index]
            Accessible.selectable: true
            Accessible.selected: box.currentIndex === index

            contentItem: PlainText {
                leftPadding: 8
                text: choice.modelData
                color: choice.highlighted ? "white" : Theme.textPrimary
                verticalAlignment: Text.AlignVCenter
                Accessible.ignored: true
            }
            background: Rectangle {
                radius: 4
                color: choice.highlighted ? Theme.accentFill : "transparent"
                Accessible.ignored: true
            }
        }
        popup: T.Popup {
            y: box.height + 3
            width: box.width
            height: contentItem.implicitHeight + 2 * padding
            padding: 5

            contentItem: ListView {
                implicitHeight: contentHeight
                model: box.delegateModel
                currentIndex: box.highlightedIndex
                interactive: false
                Accessible.role: Accessible.List
                Accessible.name: root.label
            }
            background: Surface {
                radius: 8
                fill: Theme.sheetBackground
                stroke: Theme.divider
                edgeShadow: Theme.edgeShadow
                wideShadow: Theme.wideShadow
            }
        }
    }

    FieldRing {
        anchors.fill: box
        visible: box.activeFocus
    }
}
