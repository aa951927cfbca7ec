import QtQuick
import Hmatnik

// A symbol by its name in the Mac's symbol set.
Text {
    id: root

    required property string name
    property real size: 16

    textFormat: Text.PlainText
    text: Symbols.glyph(name)
    font: Symbols.isTextGlyph(name) ? Theme.font(size, Font.Medium) : Theme.symbolFont(size)
    color: Theme.textPrimary
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    Accessible.ignored: true
}
