import QtQuick
import Hmatnik

// A symbol by its name in the Mac's symbol set.
Text {
    id: root

    required property string name
    property real size: 16
    // Grows with the text it stands beside; 1 where it fills something of a fixed size.
    property real scaling: Theme.textScale

    textFormat: Text.PlainText
    text: Symbols.glyph(name)
    font: Symbols.isTextGlyph(name) ? Theme.font(size * scaling, Font.Medium) : Theme.symbolFont(size * scaling)
    color: Theme.textPrimary
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    Accessible.ignored: true
}
