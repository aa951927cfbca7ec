import QtQuick
import Hmatnik

// Tells that changes could not be stored, and offers to try again.
Item {
    id: root

    required property SaveNoticeState notice
    // Not behind a sheet or in a closed window.
    readonly property bool audible: enabled && Window.visibility !== Window.Hidden
    readonly property string message: headline.text + ". " + detail.text

    // Each message once, as soon as somebody can hear it.
    function tell() {
        if (audible)
            announcer.text = message;
    }

    implicitHeight: 28 + Math.max(texts.implicitHeight, buttons.implicitHeight)
    Accessible.role: Accessible.AlertMessage
    Accessible.name: headline.text
    Accessible.description: detail.text

    onAudibleChanged: tell()
    onMessageChanged: tell()
    Component.onCompleted: tell()

    Announcer {
        id: announcer

        text: ""
        source: root
    }
    BannerGround {
        anchors.fill: parent
        tint: Theme.orange
    }

    Symbol {
        id: icon

        x: 14
        anchors.verticalCenter: parent.verticalCenter
        name: "exclamationmark.triangle.fill"
        size: 19
        width: 18 * Theme.textScale
        color: Theme.orangeSymbol
    }

    Column {
        id: texts

        anchors.left: icon.right
        anchors.leftMargin: 12
        anchors.right: buttons.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        PlainText {
            id: headline

            width: parent.width
            text: root.notice.headline
            font: Theme.headline
            wrapMode: Text.Wrap
        }
        PlainText {
            id: detail

            width: parent.width
            text: root.notice.detail
            font: Theme.font(11.5 * Theme.textScale, Font.Normal)
            color: Theme.textSecondary
            wrapMode: Text.Wrap
        }
    }

    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        spacing: 12

        PlainButton {
            id: hide

            anchors.verticalCenter: parent.verticalCenter
            text: "Skrýt"
            Accessible.role: Accessible.Button
            Accessible.name: text
            onClicked: root.notice.hide()

            contentItem: PlainText {
                text: hide.text
                font: Theme.font(11.5 * Theme.textScale, Font.Normal)
                color: Theme.textSecondary
                Accessible.ignored: true
            }
        }
        SheetButton {
            anchors.verticalCenter: parent.verticalCenter
            text: "Zkusit znovu"
            prominent: true
            small: true
            onClicked: root.notice.tryAgain()
            Keys.onReturnPressed: clicked()
            Keys.onEnterPressed: clicked()
        }
    }
}
