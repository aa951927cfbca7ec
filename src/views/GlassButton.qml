import QtQuick
import QtQuick.Templates as T
import Hmatnik

// The buttons of the top bar.
T.AbstractButton {
    id: root

    required property string symbol
    property real maximumTextWidth: 180
    // False where the button can't be used now; it is drawn so.
    property bool usable: true

    implicitWidth: Math.ceil(implicitContentWidth) + 22
    leftPadding: 11
    rightPadding: 11
    implicitHeight: Math.round(32 * Theme.textScale)
    enabled: usable
    opacity: down ? 0.7 : (usable ? 1 : 0.5)
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.Button
    Accessible.name: text
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: GlassSurface {}
    contentItem: IconLabel {
        symbol: root.symbol
        symbolSize: 14
        text: root.text
        font: Theme.captionMedium
        maximumTextWidth: root.maximumTextWidth
        ignored: true
    }

    FocusRing {
        radius: 16
        visible: root.visualFocus
    }
}
