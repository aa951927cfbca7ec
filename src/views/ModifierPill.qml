import QtQuick
import QtQuick.Templates as T
import Hmatnik

// One modifier of the filter bar.
T.AbstractButton {
    id: root

    required property string spokenName

    checkable: true
    // A word takes more room than a glyph.
    implicitWidth: Math.max(Math.round(42 * Theme.textScale), Math.ceil(contentItem.implicitWidth) + 20)
    implicitHeight: Math.round(30 * Theme.textScale)
    opacity: down ? 0.7 : 1
    focusPolicy: Qt.TabFocus
    Accessible.name: text
    Accessible.description: spokenName
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: GlassSurface {
        fill: root.checked ? Theme.accentFill : Theme.glassFill
    }
    contentItem: PlainText {
        text: root.text
        font: Theme.font(15 * Theme.textScale, Font.DemiBold)
        color: root.checked ? "white" : Theme.textPrimary
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    FocusRing {
        radius: 16
        visible: root.visualFocus
    }
}
