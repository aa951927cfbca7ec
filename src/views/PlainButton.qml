import QtQuick
import QtQuick.Templates as T
import Hmatnik

// A button without a ground of its own: only what it shows reacts.
T.AbstractButton {
    id: root

    // False where Return has another meaning.
    property bool pressedByReturn: true

    function returnPressed(event: KeyEvent) {
        if (pressedByReturn)
            clicked();
        else
            event.accepted = false;
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    opacity: down ? 0.7 : 1
    focusPolicy: Qt.TabFocus
    Accessible.onPressAction: root.clicked()
    Keys.onReturnPressed: event => returnPressed(event)
    Keys.onEnterPressed: event => returnPressed(event)

    FocusRing {
        visible: root.visualFocus
    }
}
