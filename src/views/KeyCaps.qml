pragma ComponentBehavior: Bound

import QtQuick
import Hmatnik

// A key combination as a row of key caps; given a width, it goes on in another row.
Flow {
    id: root

    required property var keys
    property bool compact: false
    // Widest a single cap may grow; longer tokens are cut with an ellipsis.
    property real maximumCapWidth: 240
    // What a person typed can have thousands of tokens. Those beyond this number are never made;
    // the last cap then tells that there are more.
    property int maximumCaps: 32

    spacing: compact ? 3 : 5
    Accessible.ignored: true

    Repeater {
        model: Math.min(root.keys.length, root.maximumCaps)

        Surface {
            id: cap

            required property int index

            width: Math.max(Math.round((root.compact ? 21 : 30) * Theme.textScale), Math.min(root.maximumCapWidth, Math.ceil(label.implicitWidth) + 2 * (root.compact ? 5 : 8)))
            height: Math.max(Math.round((root.compact ? 20 : 28) * Theme.textScale), Math.ceil(label.implicitHeight))
            radius: root.compact ? 5 : 7
            fill: Theme.keyCapFill
            stroke: Theme.keyCapBorder
            edgeShadow: Theme.keyCapShadow
            wideShadow: "transparent"
            Accessible.ignored: true

            PlainText {
                id: label

                anchors.centerIn: parent
                width: Math.min(implicitWidth, cap.width - 2 * (root.compact ? 5 : 8) + 1)
                text: {
                    if (cap.index === root.maximumCaps - 1 && root.keys.length > root.maximumCaps)
                        return "…";
                    return cap.index < root.keys.length ? root.keys[cap.index] : "";
                }
                font: Theme.font((root.compact ? 10 : 13) * Theme.textScale, Font.DemiBold)
                elide: Text.ElideRight
                maximumLineCount: 1
                Accessible.ignored: true
            }
        }
    }
}
