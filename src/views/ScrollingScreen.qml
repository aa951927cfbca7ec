import QtQuick
import QtQuick.Templates as T
import Hmatnik

// A screen that is scrolled as a whole where it is higher than its place.
Flickable {
    boundsBehavior: Flickable.StopAtBounds
    interactive: contentHeight > height
    clip: interactive
    Keys.onUpPressed: bar.decrease()
    Keys.onDownPressed: bar.increase()

    T.ScrollBar.vertical: GlassScrollBar {
        id: bar

        stepSize: 0.08
    }
}
