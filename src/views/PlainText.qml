import QtQuick
import Hmatnik

// Every text of the program. Titles and details may come from other programs' menus, so no text is
// ever read as markup.
Text {
    textFormat: Text.PlainText
    font: Theme.body
    color: Theme.textPrimary
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
