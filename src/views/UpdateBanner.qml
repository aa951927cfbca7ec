import QtQuick
import Hmatnik

// Tells that a newer version has been published.
Item {
    id: root

    required property UpdateBannerState banner

    implicitHeight: 28 + Math.max(texts.implicitHeight, buttons.implicitHeight)
    Accessible.role: Accessible.Notification
    Accessible.name: headline.text

    Announcer {
        text: headline.text
        source: root
    }
    BannerGround {
        anchors.fill: parent
        tint: Theme.blue
    }

    Symbol {
        id: icon

        x: 14
        anchors.verticalCenter: parent.verticalCenter
        name: "arrow.down.circle.fill"
        size: 19
        width: 18 * Theme.textScale
        color: Theme.blueSymbol
    }

    Column {
        id: texts

        anchors.left: icon.right
        anchors.leftMargin: 12
        anchors.right: buttons.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        // Both texts come from the server.
        PlainText {
            id: headline

            width: parent.width
            text: root.banner.headline
            font: Theme.headline
            elide: Text.ElideRight
            maximumLineCount: 1
        }
        ScrollingText {
            width: parent.width
            text: root.banner.detail
            font: Theme.font(11.5 * Theme.textScale, Font.Normal)
            color: Theme.textSecondary
        }
    }

    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        spacing: 12

        PlainButton {
            id: skip

            anchors.verticalCenter: parent.verticalCenter
            text: "Přeskočit"
            Accessible.role: Accessible.Button
            Accessible.name: text
            onClicked: root.banner.skip()

            contentItem: PlainText {
                text: skip.text
                font: Theme.font(11.5 * Theme.textScale, Font.Normal)
                color: Theme.textSecondary
                Accessible.ignored: true
            }
        }
        SheetButton {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.banner.canDownload
            text: "Stáhnout"
            prominent: true
            small: true
            onClicked: root.banner.download()
            Keys.onReturnPressed: clicked()
            Keys.onEnterPressed: clicked()
        }
    }
}
