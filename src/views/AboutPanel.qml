import QtQuick
import Hmatnik

// The standard panel that names the program and its version.
Window {
    id: root

    required property string version

    function present() {
        show();
        raise();
        requestActivate();
    }

    title: "O aplikaci Hmatník"
    width: Math.round(300 * Theme.textScale)
    height: Math.round(220 * Theme.textScale)
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height
    flags: Qt.Dialog
    color: Theme.windowBackground

    Column {
        anchors.centerIn: parent
        width: parent.width - 40
        spacing: 8

        BrandMark {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 64
            height: 64
            radius: 15
        }
        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: "Hmatník"
            font: Theme.title2Bold
            Accessible.role: Accessible.Heading
        }
        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: "Verze " + root.version
            font: Theme.caption
            color: Theme.textSecondary
        }
    }

    Shortcut {
        sequences: ["Escape", "Ctrl+W"]
        onActivated: root.close()
    }
}
