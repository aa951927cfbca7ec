import QtQuick
import Hmatnik

// Page title, the two buttons and the search field.
FocusScope {
    id: root

    required property AppModel model
    required property ShellBridge shell
    required property string title
    // What the screen under the bar has to say of the search.
    property string searchOutcome: ""

    function focusSearch(reason: int) {
        search.takeFocus(reason);
    }

    implicitHeight: 66

    PlainText {
        x: 22
        anchors.verticalCenter: parent.verticalCenter
        width: overlay.x - x - 10
        text: root.title
        font: Theme.pageTitle
        // The name of the application in front can leave it less than it needs.
        fontSizeMode: Text.HorizontalFit
        verticalAlignment: Text.AlignVCenter
        minimumPointSize: 12
        elide: Text.ElideRight
        Accessible.role: Accessible.Heading
    }

    GlassButton {
        id: overlay

        anchors.right: importer.left
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        symbol: "macwindow"
        text: root.model.activeApp
        onClicked: root.shell.toggleOverlay()
    }
    GlassButton {
        id: importer

        anchors.right: search.left
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        symbol: "square.and.arrow.down"
        text: root.model.isImporting ? "Importuji…" : "Import z menu"
        usable: !root.model.isImporting
        onClicked: root.shell.importFrontmostMenu()
    }
    SearchField {
        id: search

        focus: true
        anchors.right: parent.right
        anchors.rightMargin: 22
        anchors.verticalCenter: parent.verticalCenter
        text: root.model.search
        outcome: root.searchOutcome
        onEdited: text => root.model.search = text
    }
}
