import QtQuick
import Hmatnik

// A group of settings under a title.
Item {
    id: root

    required property string title
    property real contentHeight: 0
    readonly property real headingHeight: heading.implicitHeight + 6
    default property alias contents: ground.data

    implicitHeight: headingHeight + contentHeight
    Accessible.role: Accessible.Grouping
    Accessible.name: title

    PlainText {
        id: heading

        x: 8
        text: root.title
        font: Theme.font(11 * Theme.textScale, Font.DemiBold)
        color: Theme.textSecondary
        Accessible.role: Accessible.Heading
    }

    GroupSurface {
        id: ground

        anchors.top: heading.bottom
        anchors.topMargin: 6
        width: parent.width
        height: root.contentHeight
    }
}
