import QtQuick
import QtQuick.Templates as T
import Hmatnik

// A button without a ground of its own: only what it shows reacts.
T.AbstractButton {
    id: root

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    opacity: down ? 0.7 : 1
    focusPolicy: Qt.TabFocus
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    FocusRing {
        visible: root.visualFocus
    }
}
