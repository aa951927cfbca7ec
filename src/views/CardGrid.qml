pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Hmatnik

// Cards in as many equal columns as fit. Only the rows in sight exist.
ListView {
    id: root

    required property CardRows rows
    property real minimumColumn: 250
    property real columnSpacing: 14
    property real outerPadding: 22
    // The card that arrow keys move from.
    property int currentCard: 0

    signal toggleFavorite(card: int)

    function moveTo(card: int) {
        if (rows.cardCount === 0)
            return;
        currentCard = Math.max(0, Math.min(rows.cardCount - 1, card));
        const row = Math.floor(currentCard / rows.columns);
        if (row === 0)
            contentY = originY - topMargin;
        else if (row === count - 1)
            contentY = Math.max(originY - topMargin, originY + contentHeight + bottomMargin - height);
        else
            positionViewAtIndex(row, ListView.Contain);
    }

    function restart() {
        currentCard = 0;
        contentY = originY - topMargin;
    }

    model: rows
    spacing: columnSpacing
    topMargin: outerPadding
    bottomMargin: outerPadding
    clip: true
    reuseItems: true
    cacheBuffer: 160
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    activeFocusOnTab: true
    Accessible.role: Accessible.List
    Accessible.name: "Zkratky"

    onWidthChanged: rows.columns = rows.columnsFor(width - 2 * outerPadding, minimumColumn, columnSpacing)

    Keys.onPressed: event => {
        const page = Math.max(1, Math.floor(height / 160)) * rows.columns;
        switch (event.key) {
        case Qt.Key_Left:
            moveTo(currentCard - 1);
            break;
        case Qt.Key_Right:
            moveTo(currentCard + 1);
            break;
        case Qt.Key_Up:
            if (currentCard >= rows.columns)
                moveTo(currentCard - rows.columns);
            break;
        case Qt.Key_Down:
            moveTo(currentCard + rows.columns);
            break;
        case Qt.Key_PageUp:
            moveTo(currentCard - page);
            break;
        case Qt.Key_PageDown:
            moveTo(currentCard + page);
            break;
        case Qt.Key_Home:
            moveTo(0);
            break;
        case Qt.Key_End:
            moveTo(rows.cardCount - 1);
            break;
        case Qt.Key_Space:
        case Qt.Key_Return:
        case Qt.Key_Enter:
            toggleFavorite(currentCard);
            break;
        default:
            return;
        }
        event.accepted = true;
    }

    delegate: Item {
        id: cardRow

        required property int index
        required property var cards

        width: ListView.view.width
        height: childrenRect.height
        // A row kept for reuse is only culled; assistive technologies would still find its cards.
        ListView.onPooled: visible = false
        ListView.onReused: visible = true

        Row {
            id: strip

            property real tallest: 145

            function measure() {
                let height = 145;
                for (let i = 0; i < repeater.count; ++i) {
                    const card = repeater.itemAt(i);
                    if (card && card.visible)
                        height = Math.max(height, card.implicitHeight);
                }
                tallest = height;
            }

            x: root.outerPadding
            spacing: PixelGrid.snapped(root.columnSpacing, Screen.devicePixelRatio)

            Repeater {
                id: repeater

                model: root.rows.columns
                onCountChanged: strip.measure()

                ShortcutCard {
                    id: card

                    required property int index
                    // Without a row, it is on its way out.
                    readonly property int position: (cardRow?.index ?? 0) * root.rows.columns + index

                    visible: index < cardRow.cards.length
                    // A place without a card repeats its neighbour, unseen.
                    card: cardRow.cards[Math.min(index, cardRow.cards.length - 1)]
                    width: PixelGrid.columnWidth(index, root.rows.columns, root.width - 2 * root.outerPadding, root.columnSpacing, Screen.devicePixelRatio)
                    height: strip.tallest
                    current: root.activeFocus && position === root.currentCard && !starFocused
                    starInTabOrder: position === root.currentCard
                    onImplicitHeightChanged: strip?.measure()
                    onVisibleChanged: strip?.measure()
                    onToggleFavorite: root.toggleFavorite(position)
                    onStarLeft: root.forceActiveFocus(Qt.BacktabFocusReason)
                }
            }
        }
    }

    T.ScrollBar.vertical: GlassScrollBar {}
}
