import QtQuick
import Hmatnik

// The sheet in which a person adds a shortcut of their own.
Sheet {
    id: root

    required property AppModel model
    required property SheetState sheets

    function save() {
        if (editor.add())
            sheets.dismiss();
    }

    title: heading.text
    sheetWidth: 500
    sheetHeight: 390
    firstField: titleField
    onCancelled: sheets.dismiss()
    onConfirmed: save()

    EditorState {
        id: editor

        model: root.model
        onInputChanged: root.sheets.hasInput = hasInput
    }

    PlainText {
        id: heading

        x: 22
        y: 22
        text: "Přidat vlastní zkratku"
        font: Theme.titleBold
        Accessible.role: Accessible.Heading
    }

    GroupSurface {
        anchors.top: heading.bottom
        anchors.topMargin: 18
        anchors.bottom: buttons.top
        anchors.bottomMargin: 18
        x: 22
        width: parent.width - 44

        Column {
            x: 14
            y: 12
            width: parent.width - 28
            spacing: 12

            FormField {
                id: titleField

                width: parent.width
                label: "Název"
                text: editor.title
                onTextChanged: editor.title = text
            }
            FormField {
                width: parent.width
                label: "Klávesy (oddělte +)"
                placeholder: editor.keysPlaceholder
                spokenPlaceholder: editor.spokenKeysPlaceholder
                text: editor.keys
                onTextChanged: editor.keys = text
            }
            FormPicker {
                width: parent.width
                label: "Kategorie"
                choices: editor.categories
                chosen: editor.category
                onPicked: choice => editor.category = choice
            }
            FormField {
                width: parent.width
                label: "Aplikace (volitelné)"
                placeholder: "např. Finder"
                text: editor.app
                onTextChanged: editor.app = text
            }
            FormField {
                width: parent.width
                label: "Popis"
                text: editor.detail
                onTextChanged: editor.detail = text
            }
        }
    }

    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: 22
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 22
        spacing: 10

        SheetButton {
            text: "Zrušit"
            onClicked: root.sheets.dismiss()
        }
        SheetButton {
            text: "Přidat"
            prominent: true
            usable: editor.valid
            onClicked: root.save()
        }
    }
}
