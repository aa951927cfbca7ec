import QtQuick
import QtQuick.Templates as T
import Hmatnik

// A key of the drawn keyboard.
T.AbstractButton {
    id: root

    required property bool available

    checkable: true
    opacity: down ? 0.7 : 1
    focusPolicy: Qt.NoFocus
    Accessible.name: text
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: Surface {
        radius: 8
        fill: root.checked ? Theme.accentFill : root.available ? Theme.faded(Theme.green, 0.18) : Theme.drawnKeyFill
        strokeWidth: root.available ? (Theme.highContrast ? 3 : 1.5) : 1
        stroke: root.available ? Theme.faded(Theme.green, 0.65) : Theme.drawnKeyBorder
        edgeShadow: "transparent"
        wideShadow: "transparent"
        Accessible.ignored: true
    }
    contentItem: PlainText {
        leftPadding: 3
        rightPadding: 3
        text: root.text
        // The keys don't grow, so that all of them find room; their letters no more than fits.
        font: Theme.roundedFont(12 * Math.min(Theme.textScale, root.width / 24), Font.DemiBold)
        color: root.checked ? "white" : Theme.textPrimary
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        // A word on a narrow key is drawn smaller rather than cut off.
        fontSizeMode: Text.HorizontalFit
        minimumPointSize: 5
        Accessible.ignored: true
    }

    FocusRing {
        radius: 10
        visible: root.activeFocus
    }
}
