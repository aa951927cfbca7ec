import QtQuick
import QtQuick.Templates as T
import Hmatnik

// A push button of sheets and banners. Space presses it; Return belongs to the sheet.
T.AbstractButton {
    id: root

    property bool prominent: false
    property bool small: false
    // False where the button can't be used now; it is drawn so.
    property bool usable: true

    implicitWidth: Math.ceil(implicitContentWidth) + leftPadding + rightPadding
    implicitHeight: Math.round((small ? 22 : 26) * Theme.textScale)
    leftPadding: small ? 10 : (prominent ? 14 : 12)
    rightPadding: leftPadding
    enabled: usable
    opacity: down ? 0.7 : 1
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.Button
    Accessible.name: text

    background: Surface {
        radius: 6
        fill: !root.prominent ? Theme.keyCapFill : root.usable ? Theme.accentFill : Theme.quaternaryFill
        stroke: root.prominent ? "transparent" : Theme.keyCapBorder
        edgeShadow: root.prominent ? "transparent" : Theme.keyCapShadow
        wideShadow: "transparent"
    }
    contentItem: PlainText {
        text: root.text
        font: Theme.font((root.small ? 12 : 13) * Theme.textScale, root.prominent ? Font.Medium : Font.Normal)
        color: !root.usable ? Theme.textDisabled : root.prominent ? "white" : Theme.textPrimary
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    FocusRing {
        visible: root.visualFocus
    }
}
