import QtQuick
import Hmatnik

// Shows the window's sheet over it, and gives the keyboard back to where it came from.
Loader {
    id: root

    required property AppModel model
    required property SheetState sheets

    // Set only once it is known what has the keyboard: what lies behind is disabled by it.
    property bool open: false
    readonly property Sheet sheet: item as Sheet
    // What had the keyboard before the sheet, and whether a ring showed so.
    property Item giver: null
    property int reason: Qt.OtherFocusReason

    function present() {
        giver = root.Window.activeFocusItem;
        reason = giver?.visualFocus === true ? Qt.TabFocusReason : Qt.OtherFocusReason;
        open = true;
        setSource(sheets.sheet === "add" ? "CustomShortcutEditor.qml" : "SettingsView.qml", {
            model: root.model,
            sheets: root.sheets
        });
        sheet.appear(reason);
    }

    function dismiss() {
        sheet.leave();
        open = false;
        if (giver)
            giver.forceActiveFocus(reason);
        giver = null;
    }

    Connections {
        target: root.sheets
        function onChanged() {
            if (root.sheets.sheet.length > 0)
                root.present();
            else
                root.dismiss();
        }
    }

    Connections {
        target: root.sheet
        function onGone() {
            if (!root.open)
                root.setSource("");
        }
    }
}
