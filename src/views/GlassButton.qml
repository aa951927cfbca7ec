import QtQuick
import QtQuick.Templates as T
import Hmatnik

// The buttons of the top bar.
T.AbstractButton {
    id: root

    required property string symbol
    // As wide as its text wants it, and with nothing but its symbol.
    readonly property real naturalWidth: narrowestWidth + (label.textWidth > 0 ? label.spacing + Math.ceil(label.textWidth) : 0)
    readonly property real narrowestWidth: Math.ceil(14 * Theme.textScale) + 22
    // The text is cut to what this leaves; where that is next to nothing, only the symbol is drawn.
    property real maximumWidth: 1e6
    // False where the button can't be used now; it is drawn so.
    property bool usable: true

    readonly property real textRoom: maximumWidth - narrowestWidth - label.spacing
    readonly property IconLabel label: IconLabel {
        symbol: root.symbol
        symbolSize: 14
        text: root.text
        font: Theme.captionMedium
        color: root.usable ? Theme.textPrimary : Theme.textDisabled
        maximumTextWidth: root.textRoom
        textDrawn: textWidth > 0 && root.textRoom >= Math.min(textWidth, 30 * Theme.textScale)
        ignored: true
    }

    implicitWidth: narrowestWidth + (label.textDrawn ? label.spacing + Math.ceil(Math.min(label.textWidth, textRoom)) : 0)
    leftPadding: 11
    rightPadding: 11
    implicitHeight: Math.round(32 * Theme.textScale)
    enabled: usable
    opacity: down ? 0.7 : 1
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.Button
    Accessible.name: text
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: GlassSurface {}
    contentItem: label

    FocusRing {
        radius: 16
        visible: root.visualFocus
    }
}
