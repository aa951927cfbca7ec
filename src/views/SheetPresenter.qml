import QtQuick
import Hmatnik

// Shows the window's sheet over it, and gives the keyboard back afterwards.
Loader {
    id: root

    required property AppModel model
    required property SheetState sheets
    // What the sheet lies over.
    required property ContentView content

    // Set only once it is known what has the keyboard: what lies behind is disabled by it.
    property bool open: false
    readonly property Sheet sheet: item as Sheet
    // What has the keyboard after the sheet, and whether a ring shows so.
    property Item heir: null
    property int reason: Qt.OtherFocusReason

    function present() {
        const giver = root.Window.activeFocusItem;
        heir = content.heirOfSheet(giver);
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
        const quiz = sheets.isScreenAwaited() ? content.quizField : null;
        if (quiz)
            quiz.forceActiveFocus(Qt.OtherFocusReason);
        else if (heir)
            heir.forceActiveFocus(reason);
        heir = null;
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
