import QtQuick
import Hmatnik

// A symbol with its text beside it.
Row {
    id: root

    required property string symbol
    required property string text
    property font font: Theme.body
    property color color: Theme.textPrimary
    property color symbolColor: color
    property real symbolSize: 14
    property real symbolWidth: symbolSize
    property bool ignored: false
    property real maximumTextWidth: 1e6
    property bool textDrawn: true
    // As the text wants it, uncut.
    readonly property alias textWidth: label.implicitWidth

    spacing: 6

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        width: root.symbolWidth * Theme.textScale
        name: root.symbol
        size: root.symbolSize
        color: root.symbolColor
    }
    PlainText {
        id: label

        visible: root.textDrawn
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(implicitWidth, root.maximumTextWidth)
        text: root.text
        font: root.font
        color: root.color
        elide: Text.ElideRight
        Accessible.ignored: root.ignored
    }
}
