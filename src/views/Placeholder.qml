import QtQuick
import QtQuick.Templates as T
import Hmatnik

// What an empty field says in its place; behind the caret, which would cover the first letter.
PlainText {
    required property T.TextField field

    anchors.fill: parent
    anchors.leftMargin: field.leftPadding + 4
    anchors.rightMargin: field.rightPadding
    visible: field.text.length === 0 && field.preeditText.length === 0
    verticalAlignment: Text.AlignVCenter
    elide: Text.ElideRight
    Accessible.ignored: true
}
