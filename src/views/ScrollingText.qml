import QtQuick
import QtQuick.Templates as T
import Hmatnik

// A text of any length in a few lines; a longer one scrolls, also by the keyboard.
Item {
    id: root

    required property string text
    required property font font
    property color color: Theme.textPrimary
    property int maximumLines: 3

    readonly property bool scrolls: label.lineCount > maximumLines
    readonly property real lineHeight: label.height / Math.max(1, label.lineCount)

    function scrollTo(y: real) {
        view.contentY = Math.max(0, Math.min(label.height - view.height, y));
    }

    implicitHeight: Math.min(label.height, Math.ceil(maximumLines * lineHeight))
    activeFocusOnTab: scrolls
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.focusable: scrolls
    Accessible.focused: activeFocus
    onTextChanged: scrollTo(0)

    Keys.onPressed: event => {
        switch (event.key) {
        case Qt.Key_Up:
            scrollTo(view.contentY - lineHeight);
            break;
        case Qt.Key_Down:
            scrollTo(view.contentY + lineHeight);
            break;
        case Qt.Key_PageUp:
            scrollTo(view.contentY - view.height);
            break;
        case Qt.Key_PageDown:
            scrollTo(view.contentY + view.height);
            break;
        case Qt.Key_Home:
            scrollTo(0);
            break;
        case Qt.Key_End:
            scrollTo(label.height);
            break;
        default:
            return;
        }
        event.accepted = true;
    }

    Flickable {
        id: view

        anchors.fill: parent
        contentHeight: label.height
        boundsBehavior: Flickable.StopAtBounds
        interactive: root.scrolls
        clip: root.scrolls
        Accessible.ignored: true

        PlainText {
            id: label

            width: view.width
            text: root.text
            font: root.font
            color: root.color
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }

        // Beside the text, which so needs no other lines when it scrolls.
        T.ScrollBar.vertical: GlassScrollBar {
            parent: root
            anchors.left: view.right
            anchors.top: view.top
            anchors.bottom: view.bottom
            steady: true
        }
    }
    FocusRing {
        visible: root.activeFocus
        radius: 5
    }
}
