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

    readonly property real naturalTitle: Math.ceil(titleMetrics.advanceWidth) + 1
    readonly property list<real> widths: TopBarLayout.widths(width - 44 - 30, [overlay.naturalWidth, search.implicitWidth, importer.naturalWidth, naturalTitle], [overlay.narrowestWidth, Math.min(search.implicitWidth, 100 * Theme.textScale), importer.narrowestWidth, naturalTitle / Theme.textScale])

    implicitHeight: 66

    TextMetrics {
        id: titleMetrics

        text: root.title
        font: Theme.pageTitle
    }
    PlainText {
        x: 22
        anchors.verticalCenter: parent.verticalCenter
        width: root.widths[TopBarLayout.Title]
        text: root.title
        font: Theme.roundedFont(24 * Math.max(1, Theme.textScale * width / root.naturalTitle), Font.Bold)
        verticalAlignment: Text.AlignVCenter
        Accessible.role: Accessible.Heading
    }

    GlassButton {
        id: overlay

        anchors.right: importer.left
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        symbol: "macwindow"
        maximumWidth: root.widths[TopBarLayout.Overlay]
        text: root.model.activeApp
        onClicked: root.shell.toggleOverlay()
    }
    GlassButton {
        id: importer

        anchors.right: search.left
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        symbol: "square.and.arrow.down"
        maximumWidth: root.widths[TopBarLayout.Importer]
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
        width: root.widths[TopBarLayout.Search]
        text: root.model.search
        outcome: root.searchOutcome
        onEdited: text => root.model.search = text
    }
}
