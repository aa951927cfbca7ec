pragma ComponentBehavior: Bound

import QtQuick
import Hmatnik

// Pills that require a modifier of the shortcuts shown.
Item {
    id: root

    required property FilterBarState filters

    implicitHeight: Math.round(30 * Theme.textScale)

    Row {
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            text: "Obsahuje"
            font: Theme.caption
            color: Theme.textSecondary
        }

        Repeater {
            model: root.filters.captions

            ModifierPill {
                required property int index
                required property string modelData

                text: modelData
                spokenName: root.filters.names[index]
                checked: root.filters.selected[index]
                onClicked: root.filters.toggle(index)
            }
        }
    }

    PlainButton {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        visible: root.filters.active
        text: "Zrušit filtry"
        Accessible.role: Accessible.Button
        Accessible.name: text
        onClicked: root.filters.clear()

        contentItem: PlainText {
            text: "Zrušit filtry"
            font: Theme.caption
            color: Theme.textSecondary
            Accessible.ignored: true
        }
    }
}
